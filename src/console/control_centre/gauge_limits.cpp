#include "control_centre/gauge_limits.h"

#include "control_centre/size_strip_bar.h"

#include <controls/linear_gauge.h>
#include <controls/number_text.h>
#include <device/bench.h>
#include <device/rounding.h>

#include <limits>

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

/// The suffix of the caption without its blank.
QString UnitOfRow(int row) {
    return TextOf(MonitorRows.at(static_cast<std::size_t>(row)).Suffix).trimmed();
}

/// Each leaves PointerIndex at the pointer it names.
/// @{
double HandleValue(LinearGauge& gauge, int handle) {
    gauge.PointerIndex(handle);
    return gauge.PointerValue();
}

void SetHandle(LinearGauge& gauge, int handle, double value) {
    gauge.PointerIndex(handle);
    gauge.PointerValue(value);
}

void SetBand(LinearGauge& gauge, int band, double from, double to) {
    gauge.PointerIndex(band);
    gauge.PointerFrom(from);
    gauge.PointerTo(to);
}

/// @}

} // namespace

GaugeLimits::GaugeLimits(Bench& bench, LinearGauge& gauge, SizeStripBar& sizes, MonitorState& state)
    : m_bench(bench)
    , m_gauge(gauge)
    , m_sizes(sizes)
    , m_state(state) {}

void GaugeLimits::LoadChannelLimits(int row) {
    if (IsHeadingRow(row)) {
        m_state.StripGroup = static_cast<std::int16_t>(row);
        m_sizes.SizeStrip(row);
    } else {
        PutOnGauge(row);
    }
    if (!IsFanRow(m_state.SelectedChannel)) {
        AdjustBargraphHandlesETC();
    }
}

void GaugeLimits::PutOnGauge(int row) {
    m_state.SelectedChannel = static_cast<std::int16_t>(row);
    m_sizes.SizeGauge(row);
    m_gauge.Unit(UnitOfRow(row));
    try {
        ShowLimits(row);
    } catch (...) {
        // The handles still stand where another channel had them.
        m_state.SelectedChannel = 0;
        m_sizes.PrepareNoHandleGauge();
        m_gauge.BarValue(std::numeric_limits<double>::quiet_NaN());
        m_gauge.Caption(QString());
        throw;
    }
}

void GaugeLimits::ShowLimits(int row) {
    const std::optional<ChannelLimits> limits = m_bench.Channels.ReadLimits(row);
    if (!limits) {
        return;
    }
    SetHandle(m_gauge, LowHandle, limits->Low);
    if (limits->High) {
        SetHandle(m_gauge, HighHandle, *limits->High);
    }
}

void GaugeLimits::PointerMoved() {
    if (WritesOn(ComsSMBus)) {
        WriteLimits();
    }
    if (!IsFanRow(m_state.SelectedChannel)) {
        AdjustBargraphHandlesETC();
    }
}

void GaugeLimits::PointerSettled() {
    if (!IsFanRow(m_state.SelectedChannel)) {
        AdjustBargraphHandlesETC();
    }
    if (WritesOn(ComsPrinterPort)) {
        WriteLimits();
    }
}

void GaugeLimits::AdjustBargraphHandlesETC() {
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

void GaugeLimits::BandMoved(int other) {
    const double low = m_gauge.PointerFrom();
    const double high = m_gauge.PointerTo();
    SetBand(m_gauge, other, low, high);
    SetHandle(m_gauge, LowHandle, low);
    SetHandle(m_gauge, HighHandle, high);
}

void GaugeLimits::LowHandleMoved() {
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

void GaugeLimits::HighHandleMoved() {
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

void GaugeLimits::UpdateBands() {
    const double low = HandleValue(m_gauge, LowHandle);
    const double high = HandleValue(m_gauge, HighHandle);
    SetBand(m_gauge, BandA, low, high);
    SetBand(m_gauge, BandB, low, high);
}

bool GaugeLimits::WritesOn(std::uint8_t medium) const {
    return m_state.ControlCentreReady && m_bench.Bus.BusCell.ComsMedium == medium;
}

void GaugeLimits::WriteLimits() {
    const int row = m_state.SelectedChannel;
    if (!HasChannel(row)) {
        return;
    }
    ChannelLimits limits;
    limits.Low = HandleValue(m_gauge, LowHandle);
    if (!IsFanRow(row)) {
        limits.High = HandleValue(m_gauge, HighHandle);
    }
    m_bench.Channels.WriteLimits(row, limits);
}

} // namespace tqx
