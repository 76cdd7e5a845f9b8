#include "device/channel_table.h"

#include "channel_settings.h"
#include "device/rounding.h"

#include <link/link_new_com_port.h>

#include <utility>

namespace tqx {
namespace {

/// `count` channels that all work on the same objects.
template <typename Channel, std::size_t Count, typename... Shared>
std::array<Channel, Count> MakeChannels(Shared&... shared) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<Channel, Count>{(static_cast<void>(I), Channel(shared...))...};
    }
    (std::make_index_sequence<Count>{});
}

/// The array index of a row; a row before `firstRow` lies beyond the end of every array.
std::size_t IndexOfRow(int row, int firstRow) {
    return static_cast<std::size_t>(row - firstRow);
}

constexpr float HighPercentage = 90;
constexpr float LowPercentage = 10;
constexpr std::int16_t TemperatureHighLimit = 90;
constexpr std::int16_t TemperatureLowLimit = 0;
constexpr double FanLimit = 50;

/// A battery is let run lower than the other inputs before it alarms.
constexpr float BatteryAllowance = 0.2F;
constexpr int BatteryRow = 15;

constexpr std::array LimitedVoltageRows{15, 16, 17, 18, 19, 20, 21, 22,
                                        23, 24, 25, 26, 27, 28, 30, 31};

} // namespace

ChannelTable::ChannelTable(LinkNewComPort& bus)
    : Calculations(bus)
    , Fans(MakeChannels<Fan, 8>(bus, Calculations))
    , Voltages(MakeChannels<Voltage, 17>(bus))
    , Temperatures(MakeChannels<Temperature, 3>(bus)) {}

void ChannelTable::ConfigureChannels() {
    for (const FanSettings& settings : FanTable) {
        Fan& fan = FanOfRow(settings.Row);
        fan.Number = settings.Number;
        fan.LimitAddressPointer = settings.LimitAddressPointer;
        fan.ValueAddressPointer = settings.ValueAddressPointer;
    }
    Fans[0].Divisor();
    for (const VoltageSettings& settings : VoltageTable) {
        Voltage& voltage = VoltageOfRow(settings.Row);
        voltage.HighLimitPtr = settings.HighLimitPtr;
        voltage.LowLimitPtr = settings.LowLimitPtr;
        voltage.ValueAddrPtr = settings.ValueAddrPtr;
        voltage.MaxVoltage = settings.MaxVoltage;
        voltage.MinVoltage = settings.MinVoltage;
    }
    for (const TemperatureSettings& settings : TemperatureTable) {
        Temperature& temperature = TemperatureOfRow(settings.Row);
        temperature.MaxAddressPointer = settings.MaxAddressPointer;
        temperature.MinAddressPointer = settings.MinAddressPointer;
        temperature.ValueAddressPointer = settings.ValueAddressPointer;
    }
}

void ChannelTable::WriteDefaultLimits() {
    for (Temperature& temperature : Temperatures) {
        temperature.MinLimit(TemperatureLowLimit);
        temperature.MaxLimit(TemperatureHighLimit);
    }
    for (Fan& fan : Fans) {
        fan.Limit(FanLimit);
    }
    for (const int row : LimitedVoltageRows) {
        WriteDefaultLimitsOfVoltage(row);
    }
}

void ChannelTable::WriteDefaultLimitsOfVoltage(int row) {
    Voltage& voltage = VoltageOfRow(row);
    const float span = voltage.MaxVoltage - voltage.MinVoltage;
    const float allowance = row == BatteryRow ? BatteryAllowance : 0.0F;
    voltage.LowLimit(span / 100 * LowPercentage + voltage.MinVoltage - allowance);
    voltage.HighLimit(span / 100 * HighPercentage + voltage.MinVoltage);
}

Fan& ChannelTable::FanOfRow(int row) {
    return Fans.at(IndexOfRow(row, FirstFanRow));
}

Voltage& ChannelTable::VoltageOfRow(int row) {
    return Voltages.at(IndexOfRow(row, FirstVoltageRow));
}

Temperature& ChannelTable::TemperatureOfRow(int row) {
    return Temperatures.at(IndexOfRow(row, FirstTemperatureRow));
}

std::optional<double> ChannelTable::Reading(int row) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        return TemperatureOfRow(row).Value();
    case RowKind::Fan:
        return FanOfRow(row).Speed();
    case RowKind::Voltage:
        return VoltageOfRow(row).Value();
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
    return std::nullopt;
}

std::optional<ChannelLimits> ChannelTable::ReadLimits(int row) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature: {
        const double low = TemperatureOfRow(row).MinLimit();
        return ChannelLimits{low, TemperatureOfRow(row).MaxLimit()};
    }
    case RowKind::Fan:
        return ChannelLimits{FanOfRow(row).Limit(), std::nullopt};
    case RowKind::Voltage:
        return ChannelLimits{VoltageOfRow(row).LowLimit(), VoltageOfRow(row).HighLimit()};
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
    return std::nullopt;
}

void ChannelTable::WriteLimits(int row, const ChannelLimits& limits) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        TemperatureOfRow(row).MinLimit(RoundToInteger(limits.Low));
        TemperatureOfRow(row).MaxLimit(RoundToInteger(limits.High.value()));
        break;
    case RowKind::Fan:
        FanOfRow(row).Limit(limits.Low);
        break;
    case RowKind::Voltage:
        VoltageOfRow(row).LowLimit(static_cast<float>(limits.Low));
        VoltageOfRow(row).HighLimit(static_cast<float>(limits.High.value()));
        break;
    case RowKind::Heading:
    case RowKind::None:
        break;
    }
}

} // namespace tqx
