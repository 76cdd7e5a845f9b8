#pragma once

#include "control_centre/monitor_state.h"

namespace tqx {

class LimitHandles;
class LinearGauge;
class SizeStripBar;
struct Bench;

/// Fits gauge and chart to a picked row.
class ChannelLimits {
public:
    ChannelLimits(Bench& bench, LinearGauge& gauge, SizeStripBar& sizes, LimitHandles& handles,
                  MonitorState& state);

    /// A heading row puts its group on the chart; a channel row goes on the gauge, with its scale
    /// and its limits as the chip has them. When these cannot be read no channel is on the gauge.
    void LoadChannelLimits(int row);

    /// Reads the limits of a temperature row into the two handles.
    void ShowTemperatureLimits(int row);

private:
    void PutOnGauge(int row);
    void ReadLimits(int row);

    Bench& m_bench;
    LinearGauge& m_gauge;
    SizeStripBar& m_sizes;
    LimitHandles& m_handles;
    MonitorState& m_state;
};

} // namespace tqx
