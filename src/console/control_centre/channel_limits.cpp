#include "control_centre/channel_limits.h"

#include "control_centre/gauge_pointers.h"
#include "control_centre/limit_handles.h"
#include "control_centre/monitor_rows.h"
#include "control_centre/size_strip_bar.h"

#include <controls/number_text.h>
#include <device/bench.h>

#include <cstdint>
#include <limits>

namespace tqx {
namespace {

/// The suffix of the caption without its blank.
QString UnitOfRow(int row) {
    return TextOf(MonitorRows.at(static_cast<std::size_t>(row)).Suffix).trimmed();
}

} // namespace

ChannelLimits::ChannelLimits(Bench& bench, LinearGauge& gauge, SizeStripBar& sizes,
                             LimitHandles& handles, MonitorState& state)
    : m_bench(bench)
    , m_gauge(gauge)
    , m_sizes(sizes)
    , m_handles(handles)
    , m_state(state) {}

void ChannelLimits::LoadChannelLimits(int row) {
    if (IsHeadingRow(row)) {
        m_state.StripGroup = static_cast<std::int16_t>(row);
        m_sizes.SizeStrip(row);
    } else {
        PutOnGauge(row);
    }
    if (!IsFanRow(m_state.SelectedChannel)) {
        m_handles.AdjustBargraphHandlesETC();
    }
}

void ChannelLimits::PutOnGauge(int row) {
    m_state.SelectedChannel = static_cast<std::int16_t>(row);
    m_sizes.SizeGauge(row);
    m_gauge.Unit(UnitOfRow(row));
    try {
        ReadLimits(row);
    } catch (...) {
        // The handles still stand where another channel had them.
        m_state.SelectedChannel = 0;
        m_sizes.PrepareNoHandleGauge();
        m_gauge.BarValue(std::numeric_limits<double>::quiet_NaN());
        m_gauge.Caption(QString());
        throw;
    }
}

void ChannelLimits::ReadLimits(int row) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        ShowTemperatureLimits(row);
        break;
    case RowKind::Fan:
        SetHandle(m_gauge, LowHandle, m_bench.Channels.FanOfRow(row).Limit());
        break;
    case RowKind::Voltage:
        SetHandle(m_gauge, LowHandle, m_bench.Channels.VoltageOfRow(row).LowLimit());
        SetHandle(m_gauge, HighHandle, m_bench.Channels.VoltageOfRow(row).HighLimit());
        break;
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
}

void ChannelLimits::ShowTemperatureLimits(int row) {
    Temperature& temperature = m_bench.Channels.TemperatureOfRow(row);
    SetHandle(m_gauge, LowHandle, temperature.MinLimit());
    SetHandle(m_gauge, HighHandle, temperature.MaxLimit());
}

} // namespace tqx
