#pragma once

#include <array>
#include <string_view>

namespace tqx {

/// What stands behind a row of the control centre. The row number is the common key of channels,
/// gauge, chart and lamps.
enum class RowKind { Heading, Temperature, None, Fan, Voltage };

inline constexpr int RowCount = 32;

/// The first row of each kind of channel, and the one row that has none.
/// @{
inline constexpr int FirstTemperatureRow = 3;
inline constexpr int RowWithoutChannel = 6;
inline constexpr int FirstFanRow = 7;
inline constexpr int FirstVoltageRow = 15;

/// @}

/// The kind of a row; a number that is no row is None.
constexpr RowKind KindOfRow(int row) {
    if (row < 0 || row == RowWithoutChannel || row >= RowCount) {
        return RowKind::None;
    }
    if (row < FirstTemperatureRow) {
        return RowKind::Heading;
    }
    if (row < FirstFanRow) {
        return RowKind::Temperature;
    }
    return row < FirstVoltageRow ? RowKind::Fan : RowKind::Voltage;
}

/// A row of a temperature, a fan or a voltage.
constexpr bool HasChannel(int row) {
    return KindOfRow(row) != RowKind::Heading && KindOfRow(row) != RowKind::None;
}

inline constexpr std::array<std::string_view, RowCount> RowCaptions{
    "Temp",  "Voltage", "Fan Revs.", "IntTemp", "ExtTemp0", "ExtTemp1", "ExtTemp2", "Fan 0",
    "Fan 1", "Fan 2",   "Fan 3",     "Fan 4",   "Fan 5",    "Fan 6",    "Fan 7",    "Vbatt",
    "+5V",   "-12V",    "+12V",      "Vccp",    "Ain 0",    "Ain 1",    "Ain 2",    "Ain 3",
    "Ain 4", "Ain 5",   "Ain 6",     "Ain 7",   "Ain 8",    "Ain 9",    "3.3VS",    "3.3VM"};

/// The caption of a row, 0 to 31; empty for any other number.
constexpr std::string_view CaptionOfRow(int row) {
    return row < 0 || row >= RowCount ? std::string_view{}
                                      : RowCaptions[static_cast<std::size_t>(row)];
}

} // namespace tqx
