#pragma once

#include "control_centre/monitor_state.h"

namespace tqx {

class LinearGauge;
struct Bench;

/// The handles of `limits_gauge`: keeps the low and the high one apart, holds the bands between
/// them, and writes a moved handle to the chip.
class LimitHandles {
public:
    LimitHandles(Bench& bench, LinearGauge& gauge, const MonitorState& state);

    /// @name What the gauge tells of the user's hand
    /// On the SMBus the limits are written on each move, ahead of the handle rule; on the printer
    /// port when the hand has settled, after it.
    /// @{
    void PointerMoved();
    void PointerSettled();
    /// @}

    /// Brings the other handles in line with the pointer that PointerIndex names.
    void AdjustBargraphHandlesETC();

    /// Keeps the low handle 4 percent of ScaleMax under the high one; a handle that has crossed
    /// that line is thrown back to 8 percent. Four decimals.
    void LowHandleMoved();
    /// The same for the high handle above the low one, in whole numbers.
    void HighHandleMoved();

private:
    void BandMoved(int other);
    void UpdateBands();
    bool WritesOn(std::uint8_t medium) const;
    void WriteLimits();

    Bench& m_bench;
    LinearGauge& m_gauge;
    const MonitorState& m_state;
};

} // namespace tqx
