#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tqx {

/// `value` to the nearest whole number, ties to the even one.
inline double RoundToEven(double value) {
    return std::nearbyint(value);
}

/// `value` to the nearest with `decimals` places after the point, ties to even.
inline double RoundToEven(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::nearbyint(value * scale) / scale;
}

/// `value` rounded to even and held between `least` and `most`; a value that is no number gives
/// `least`.
inline double RoundWithin(double value, double least, double most) {
    return std::isnan(value) ? least : std::clamp(RoundToEven(value), least, most);
}

/// `value` as a register byte: rounded to even, what lies outside becomes 00h or FFh.
inline std::uint8_t RoundToByte(double value) {
    return static_cast<std::uint8_t>(RoundWithin(value, 0.0, 255.0));
}

/// `value` as a 16-bit whole number: rounded to even, what lies outside becomes the nearest end.
inline std::int16_t RoundToInteger(double value) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(RoundWithin(value, Limits::min(), Limits::max()));
}

} // namespace tqx
