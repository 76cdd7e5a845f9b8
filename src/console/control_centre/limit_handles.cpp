#include "control_centre/limit_handles.h"

#include "control_centre/gauge_pointers.h"
#include "control_centre/monitor_rows.h"

#include <device/bench.h>
#include <device/rounding.h>

#include <cstdint>

namespace tqx {
namespace {

/// A crossed handle is closer than the first and is thrown back to the second, in percent of
/// ScaleMax.
constexpr double NearPercent = 4;
constexpr double FarPercent = 8;

/// A number with four decimals, as a count of ten-thousandths.
using FixedPoint = std::int64_t;

constexpr double FixedPointUnit = 10000.0;

FixedPoint ToFixedPoint(double value) {
    return static_cast<FixedPoint>(RoundToEven(value * FixedPointUnit));
}

double PercentOfScale(const LinearGauge& gauge, double percent) {
    return gauge.ScaleMax() / 100 * percent;
}

} // namespace

LimitHandles::LimitHandles(Bench& bench, LinearGauge& gauge, const MonitorState& state)
    : m_bench(bench)
    , m_gauge(gauge)
    , m_state(state) {}

void LimitHandles::PointerMoved() {
    if (WritesOn(ComsSMBus)) {
        WriteLimits();
    }
    if (!IsFanRow(m_state.SelectedChannel)) {
        AdjustBargraphHandlesETC();
    }
}

void LimitHandles::PointerSettled() {
    if (!IsFanRow(m_state.SelectedChannel)) {
        AdjustBargraphHandlesETC();
    }
    if (WritesOn(ComsPrinterPort)) {
        WriteLimits();
    }
}

void LimitHandles::AdjustBargraphHandlesETC() {
    switch (m_gauge.PointerIndex()) {
    case BandA:
        BandMoved(BandB);
        break;
    case BandB:
        BandMoved(BandA);
        break;
    case LowHandle:
        LowHandleMoved();
        break;
    case HighHandle:
        HighHandleMoved();
        break;
    default:
        break;
    }
}

void LimitHandles::BandMoved(int other) {
    const double low = m_gauge.PointerFrom();
    const double high = m_gauge.PointerTo();
    SetBand(m_gauge, other, low, high);
    SetHandle(m_gauge, LowHandle, low);
    SetHandle(m_gauge, HighHandle, high);
}

void LimitHandles::LowHandleMoved() {
    const FixedPoint low = ToFixedPoint(m_gauge.PointerValue());
    const FixedPoint high = ToFixedPoint(HandleValue(m_gauge, HighHandle));
    m_gauge.PointerIndex(LowHandle);
    const FixedPoint nearest = high - ToFixedPoint(PercentOfScale(m_gauge, NearPercent));
    const FixedPoint thrownBack = high - ToFixedPoint(PercentOfScale(m_gauge, FarPercent));
    if (low > nearest) {
        m_gauge.PointerValue(static_cast<double>(thrownBack) / FixedPointUnit);
    }
    UpdateBands();
}

void LimitHandles::HighHandleMoved() {
    const int high = RoundToInteger(m_gauge.PointerValue());
    const int low = RoundToInteger(HandleValue(m_gauge, LowHandle));
    m_gauge.PointerIndex(HighHandle);
    const int nearest = RoundToInteger(PercentOfScale(m_gauge, NearPercent) + low);
    const int thrownBack = RoundToInteger(PercentOfScale(m_gauge, FarPercent) + low);
    if (high < nearest) {
        m_gauge.PointerValue(thrownBack);
    }
    UpdateBands();
}

void LimitHandles::UpdateBands() {
    const double low = HandleValue(m_gauge, LowHandle);
    const double high = HandleValue(m_gauge, HighHandle);
    SetBand(m_gauge, BandA, low, high);
    SetBand(m_gauge, BandB, low, high);
}

bool LimitHandles::WritesOn(std::uint8_t medium) const {
    return m_state.ControlCentreReady && m_bench.Bus.BusCell.ComsMedium == medium;
}

void LimitHandles::WriteLimits() {
    const int row = m_state.SelectedChannel;
    switch (KindOfRow(row)) {
    case RowKind::Temperature: {
        Temperature& temperature = m_bench.Channels.TemperatureOfRow(row);
        temperature.MinLimit(RoundToInteger(HandleValue(m_gauge, LowHandle)));
        temperature.MaxLimit(RoundToInteger(HandleValue(m_gauge, HighHandle)));
        break;
    }
    case RowKind::Fan:
        m_bench.Channels.FanOfRow(row).Limit(HandleValue(m_gauge, LowHandle));
        break;
    case RowKind::Voltage: {
        Voltage& voltage = m_bench.Channels.VoltageOfRow(row);
        voltage.LowLimit(static_cast<float>(HandleValue(m_gauge, LowHandle)));
        voltage.HighLimit(static_cast<float>(HandleValue(m_gauge, HighHandle)));
        break;
    }
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
}

} // namespace tqx
