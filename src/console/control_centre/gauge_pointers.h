#pragma once

#include <controls/linear_gauge.h>

namespace tqx {

/// The bands of `limits_gauge` by their pointer numbers. Both span from the low to the high handle;
/// on a fan they are collapsed, and the low handle is the only one.
/// @{
inline constexpr int BandA = 0;
inline constexpr int BandB = 1;

/// @}

/// Each leaves PointerIndex at the pointer it names.
/// @{
inline double HandleValue(LinearGauge& gauge, int handle) {
    gauge.PointerIndex(handle);
    return gauge.PointerValue();
}

inline void SetHandle(LinearGauge& gauge, int handle, double value) {
    gauge.PointerIndex(handle);
    gauge.PointerValue(value);
}

inline void SetBand(LinearGauge& gauge, int band, double from, double to) {
    gauge.PointerIndex(band);
    gauge.PointerFrom(from);
    gauge.PointerTo(to);
}

/// @}

} // namespace tqx
