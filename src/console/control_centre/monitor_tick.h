#pragma once

#include "control_centre/monitor_rows.h"

#include <QString>

#include <string_view>

namespace tqx {

class LinearGauge;
class StatusLamps;
class StripChart;
struct Bench;

/// The text under the gauge: `reading` rounded to three decimals (ties to even) in its shortest
/// decimal form with a point, whatever the locale, then `suffix`. A reading that is not negative
/// has a blank where the minus would stand.
QString GaugeCaption(double reading, std::string_view suffix);

/// The work of one `BargraphTimer` tick: gauge, chart and lamps, with the link in burst mode.
///
/// A link call that fails ends the tick, raises, and leaves burst mode off.
class MonitorTick {
public:
    MonitorTick(Bench& bench, LinearGauge& gauge, StripChart& chart, StatusLamps& lamps,
                const MonitorState& state);

    /// `tab` is the tab on view, whose lamps are read.
    void Run(MonitorTab tab);

private:
    void ShowSelectedChannel();
    void FeedStrip();

    Bench& m_bench;
    LinearGauge& m_gauge;
    StripChart& m_chart;
    StatusLamps& m_lamps;
    const MonitorState& m_state;
};

} // namespace tqx
