#include "control_centre/monitor_tick.h"

#include "control_centre/status_lamps.h"
#include "control_centre/strip_groups.h"

#include <controls/linear_gauge.h>
#include <controls/number_text.h>
#include <controls/strip_chart.h>
#include <device/bench.h>
#include <device/rounding.h>
#include <link/burst_scope.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace tqx {

QString GaugeCaption(double reading, std::string_view suffix) {
    // Adding 0 turns a negative zero, which a small negative reading rounds to, into a plain one.
    const double rounded = RoundToEven(reading, 3) + 0.0;
    std::array<char, 352> text{}; // the longest double without an exponent, and three decimals
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed);
    QString caption = rounded < 0 ? QString() : QStringLiteral(" ");
    caption += QLatin1String(text.data(), end - text.data());
    return caption + TextOf(suffix);
}

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
    const std::optional<double> reading = m_bench.Channels.Reading(row);
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
        m_chart.AddStripPoint(variable++, m_bench.Channels.Reading(trace.Row).value());
    }
}

} // namespace tqx
