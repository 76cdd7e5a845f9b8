#include "control_centre/monitor_tick.h"

#include "control_centre/gauge_caption.h"
#include "control_centre/status_lamps.h"
#include "control_centre/strip_groups.h"

#include <controls/linear_gauge.h>
#include <controls/strip_chart.h>
#include <device/bench.h>
#include <link/burst_scope.h>

#include <cstdint>
#include <optional>

namespace tqx {
namespace {

/// Reads the channel of a row: degrees, revolutions per minute or volts. Nothing for a row that
/// has no channel.
std::optional<double> ReadChannel(ChannelTable& channels, int row) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        return channels.TemperatureOfRow(row).Value();
    case RowKind::Fan:
        return channels.FanOfRow(row).Speed();
    case RowKind::Voltage:
        return channels.VoltageOfRow(row).Value();
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
    return std::nullopt;
}

} // namespace

MonitorTick::MonitorTick(Bench& bench, LinearGauge& gauge, StripChart& chart, StatusLamps& lamps,
                         const MonitorState& state)
    : m_bench(bench)
    , m_gauge(gauge)
    , m_chart(chart)
    , m_lamps(lamps)
    , m_state(state) {}

void MonitorTick::Run(MonitorTab tab) {
    m_gauge.BarSelect(1);
    m_gauge.BarOrigin(0);
    const BurstScope burst(m_bench.Link->PrinterPortLink());
    ShowSelectedChannel();
    FeedStrip();
    m_lamps.ShowStatus(tab);
}

void MonitorTick::ShowSelectedChannel() {
    const int row = m_state.SelectedChannel;
    const std::optional<double> reading = ReadChannel(m_bench.Channels, row);
    if (!reading) {
        return;
    }
    m_gauge.BarValue(*reading);
    m_gauge.Caption(GaugeCaption(m_gauge.BarValue(), MonitorRows.at(row).Suffix));
}

void MonitorTick::FeedStrip() {
    const int group = m_state.StripGroup;
    if (group < 0 || group >= static_cast<int>(StripGroups.size())) {
        return;
    }
    std::int16_t variable = 0;
    for (const GroupTrace& trace : StripGroups[group].Traces) {
        m_chart.AddStripPoint(variable++, ReadChannel(m_bench.Channels, trace.Row).value());
    }
}

} // namespace tqx
