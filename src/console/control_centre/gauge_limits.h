#pragma once

#include "control_centre/monitor_rows.h"

#include <cstdint>

namespace tqx {

class LinearGauge;
class SizeStripBar;
struct Bench;
struct ChannelLimits;

/// The picked channel on `limits_gauge`: its scale and its limits as the chip has them. Keeps the
/// low and the high handle apart, spans the bands between them, and writes a moved handle to the
/// chip.
class GaugeLimits {
public:
    GaugeLimits(Bench& bench, LinearGauge& gauge, SizeStripBar& sizes, MonitorState& state);

    /// A heading row puts its group on the chart; a channel row goes on the gauge, with its scale
    /// and its limits. When these cannot be read no channel is on the gauge.
    void LoadChannelLimits(int row);

    /// Reads the limits of a row into the handles; nothing for a row without a channel.
    void ShowLimits(int row);

    /// @name What the gauge tells of the user's hand
    /// On the SMBus the limits are written on each move, ahead of the handle rule; on the printer
    /// port when the hand has settled, after it.
    /// @{
    void PointerMoved();
    void PointerSettled();
    /// @}

    /// Brings the other handles in line with the pointer that PointerIndex names.
    void AdjustBargraphHandlesETC();

private:
    void PutOnGauge(int row);
    void BandMoved(int other);
    /// Keeps the low handle 4 percent of ScaleMax under the high one; a handle that has crossed
    /// that line is thrown back to 8 percent. Four decimals.
    void LowHandleMoved();
    /// The same for the high handle above the low one, in whole numbers.
    void HighHandleMoved();
    void UpdateBands();
    bool WritesOn(std::uint8_t medium) const;
    void WriteLimits();

    Bench& m_bench;
    LinearGauge& m_gauge;
    SizeStripBar& m_sizes;
    MonitorState& m_state;
};

} // namespace tqx
