#include "device/channel_registers.h"

#include "channel_settings.h"
#include "device/channel_table.h"
#include "device/register_addresses.h"
#include "device/rounding.h"

#include <algorithm>
#include <cmath>

namespace tqx {
namespace {

struct Alarm {
    std::uint8_t Status;
    std::uint8_t Bit;
};

/// In the order of the rows from 15 on.
constexpr std::array<Alarm, 17> VoltageAlarms{{
    {reg::Status4, 1},
    {reg::Status1, 4},
    {reg::Status1, 7},
    {reg::Status1, 6},
    {reg::Status1, 5},
    {reg::Status2, 0},
    {reg::Status2, 1},
    {reg::Status2, 2},
    {reg::Status2, 3},
    {reg::Status2, 4},
    {reg::Status2, 5},
    {reg::Status2, 6},
    {reg::Status2, 7},
    {reg::Status4, 2},
    {reg::Status1, 1},
    {reg::Status1, 2},
    {reg::Status1, 3},
}};

constexpr std::array<Alarm, 3> TemperatureAlarms{
    {{reg::Status4, 0}, {reg::Status1, 0}, {reg::Status1, 1}}};

constexpr int SharedTemperatureRow = 5;
constexpr int FirstSharedVoltageRow = 28;
constexpr int LastSharedVoltageRow = 29;

constexpr std::uint8_t Byte(std::int16_t address) {
    return static_cast<std::uint8_t>(address);
}

constexpr std::array<ChannelRegisters, ChannelCount> Channels = [] {
    std::array<ChannelRegisters, ChannelCount> all{};
    std::size_t i = 0;
    for (const TemperatureSettings& each : TemperatureTable) {
        const Alarm& alarm = TemperatureAlarms[i];
        all[i++] = {each.Row,
                    Byte(each.ValueAddressPointer),
                    Byte(each.MinAddressPointer),
                    Byte(each.MaxAddressPointer),
                    alarm.Status,
                    alarm.Bit};
    }
    for (const FanSettings& each : FanTable) {
        const std::uint8_t limit = Byte(each.LimitAddressPointer);
        all[i++] = {each.Row,         Byte(each.ValueAddressPointer), limit, limit, reg::Status3,
                    Byte(each.Number)};
    }
    for (const VoltageSettings& each : VoltageTable) {
        const Alarm& alarm = VoltageAlarms[static_cast<std::size_t>(each.Row - FirstVoltageRow)];
        all[i++] = {each.Row,
                    Byte(each.ValueAddrPtr),
                    Byte(each.LowLimitPtr),
                    Byte(each.HighLimitPtr),
                    alarm.Status,
                    alarm.Bit};
    }
    std::ranges::sort(all, {}, &ChannelRegisters::Row);
    return all;
}();

} // namespace

const std::array<ChannelRegisters, ChannelCount>& AllChannels() {
    return Channels;
}

const ChannelRegisters* ChannelOfRegister(std::uint8_t reg, bool voltages) {
    const int other = voltages ? SharedTemperatureRow : LastSharedVoltageRow;
    const auto* const found = std::ranges::find_if(Channels, [&](const ChannelRegisters& each) {
        return each.Row != other &&
               (each.Value == reg || each.LowLimit == reg || each.HighLimit == reg);
    });
    return found == Channels.end() ? nullptr : found;
}

bool PinsAllow(int row, std::uint8_t config1, std::uint8_t config2) {
    const bool voltages = (config1 & EnableVoltages) != 0;
    if (KindOfRow(row) == RowKind::Fan) {
        return (config2 >> (row - FirstFanRow) & 1) == 0;
    }
    if (row == SharedTemperatureRow) {
        return !voltages;
    }
    return (row != FirstSharedVoltageRow && row != LastSharedVoltageRow) || voltages;
}

std::string_view UnitOfRow(int row) {
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        return "C";
    case RowKind::Fan:
        return "RPM";
    case RowKind::Voltage:
        return "V";
    default:
        return {};
    }
}

double ReadingOfByte(const ChannelTable& channels, int row, std::uint8_t byte) {
    const auto at = [row](int first) { return static_cast<std::size_t>(row - first); };
    switch (KindOfRow(row)) {
    case RowKind::Temperature:
        return Temperature::RawToDegrees(byte);
    case RowKind::Fan:
        return FanCountConvert(byte, channels.Calculations.FanDivisors.at(at(FirstFanRow)));
    default:
        return RoundToEven(channels.Voltages.at(at(FirstVoltageRow)).RawToVolts(byte), 3);
    }
}

/// From the highest byte down: of a fan's counts that are all too fast to tell apart the slowest is
/// the one that still alarms in time.
std::optional<std::uint8_t> NearestByte(const ChannelTable& channels, int row, double reading) {
    const bool fan = KindOfRow(row) == RowKind::Fan;
    std::uint8_t nearest = 0;
    double least = HUGE_VAL;
    double lowest = fan ? 0 : HUGE_VAL; // what is too slow to count has a byte all the same
    double highest = -HUGE_VAL;
    for (int byte = 0xFF; byte >= 0; --byte) {
        const double stands = ReadingOfByte(channels, row, static_cast<std::uint8_t>(byte));
        const double off = std::abs(stands - reading);
        if (off < least || (off == least && !fan)) {
            least = off;
            nearest = static_cast<std::uint8_t>(byte);
        }
        lowest = std::min(lowest, stands);
        highest = std::max(highest, stands);
    }
    const double step = KindOfRow(row) == RowKind::Voltage ? (highest - lowest) / 254 : 0;
    if (reading >= lowest - step && reading <= highest + step) {
        return nearest;
    }
    return std::nullopt;
}

} // namespace tqx
