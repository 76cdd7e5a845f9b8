#pragma once

#include <device/display_rows.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace tqx {

/// What the parts of the control centre share. Which row is picked is told by the colours of the
/// rows and by the two numbers here, and by nothing else.
struct MonitorState {
    /// The row on the gauge, 3 to 31; 0 until the first pick.
    std::int16_t SelectedChannel = 0;
    /// The group on the strip chart, which is the heading row last picked: 0 temperatures,
    /// 1 voltages, 2 fans.
    std::int16_t StripGroup = 0;
    /// The row last under the pointer or last clicked, whose colour the next move restores.
    int HoverRow = 1;
    /// The control centre has been set up once. A moved handle writes no limit before that.
    bool ControlCentreReady = false;
};

/// The tabs of BargraphTab by their numbers; Outside are the group headings beneath the chart.
enum class MonitorTab { Outside = -1, Temp = 0, Fans = 1, Volt = 2 };

/// How a row of `visualdisplaytext` stands on the control centre.
struct MonitorRow {
    MonitorTab Tab;
    /// Follows the reading in the gauge's caption; empty for a row without a reading.
    std::string_view Suffix;
    /// Index of its lamp in `SSPanel11`, or NoLamp.
    int Lamp;
};

inline constexpr int NoLamp = -1;

inline constexpr std::string_view CelsiusSuffix = " C";
inline constexpr std::string_view RPMSuffix = " RPM";
inline constexpr std::string_view VoltSuffix = " V";

// clang-format off
inline constexpr std::array<MonitorRow, RowCount> MonitorRows{{
    {MonitorTab::Outside, {},             NoLamp}, // 0 Temp
    {MonitorTab::Outside, {},             NoLamp}, // 1 Voltage
    {MonitorTab::Outside, {},             NoLamp}, // 2 Fan Revs.
    {MonitorTab::Temp,    CelsiusSuffix,   0},     // 3 IntTemp
    {MonitorTab::Temp,    CelsiusSuffix,   2},
    {MonitorTab::Temp,    CelsiusSuffix,   3},
    {MonitorTab::Temp,    {},              4},     // 6 ExtTemp2, never shown
    {MonitorTab::Fans,    RPMSuffix,      20},     // 7 Fan 0
    {MonitorTab::Fans,    RPMSuffix,       1},
    {MonitorTab::Fans,    RPMSuffix,      21},
    {MonitorTab::Fans,    RPMSuffix,      22},
    {MonitorTab::Fans,    RPMSuffix,      23},
    {MonitorTab::Fans,    RPMSuffix,      24},
    {MonitorTab::Fans,    RPMSuffix,      25},
    {MonitorTab::Fans,    RPMSuffix,      26},
    {MonitorTab::Volt,    VoltSuffix,      5},     // 15 Vbatt
    {MonitorTab::Volt,    VoltSuffix,      6},
    {MonitorTab::Volt,    VoltSuffix,      7},
    {MonitorTab::Volt,    VoltSuffix,      8},
    {MonitorTab::Volt,    VoltSuffix,      9},
    {MonitorTab::Volt,    VoltSuffix,     10},     // 20 Ain 0
    {MonitorTab::Volt,    VoltSuffix,     11},
    {MonitorTab::Volt,    VoltSuffix,     12},
    {MonitorTab::Volt,    VoltSuffix,     13},
    {MonitorTab::Volt,    VoltSuffix,     14},
    {MonitorTab::Volt,    VoltSuffix,     15},
    {MonitorTab::Volt,    VoltSuffix,     16},
    {MonitorTab::Volt,    VoltSuffix,     17},
    {MonitorTab::Volt,    VoltSuffix,     18},     // 28 Ain 8
    {MonitorTab::Volt,    VoltSuffix,     19},
    {MonitorTab::Volt,    VoltSuffix,     27},
    {MonitorTab::Volt,    VoltSuffix,     28},     // 31 3.3VM
}};
// clang-format on

/// @name Rows that share a pin with another function
/// @{
inline constexpr int RowExtTemp1 = 5;
inline constexpr int RowAin8 = 28;
inline constexpr int RowAin9 = 29;

/// @}

constexpr bool IsFanRow(int row) {
    return KindOfRow(row) == RowKind::Fan;
}

constexpr bool IsHeadingRow(int row) {
    return KindOfRow(row) == RowKind::Heading;
}

} // namespace tqx
