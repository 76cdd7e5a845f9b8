#pragma once

#include <array>
#include <span>
#include <string_view>

namespace tqx {

/// One variable of a group on the strip chart.
struct GroupTrace {
    /// The channel whose readings it takes.
    int Row;
    std::string_view Legend;
    /// The row whose Visible decides whether the legend is written; the two 3.3 V rows stand
    /// crosswise. AlwaysWritten where no row is looked at.
    int RowTested;
};

inline constexpr int AlwaysWritten = -1;

/// Which ends of the two Y ranges are set first, so that the lower end stays below the upper one
/// whatever stood on the chart before.
enum class YOrder { LowerEndsFirst, UpperEndsFirst };

/// What `MainStripChart` shows for a group: the index of a trace is its variable number.
struct StripGroupSetting {
    std::string_view Title;
    std::string_view Unit;
    double YFloor;
    double YLow;
    double YCeiling;
    double YHigh;
    YOrder Order;
    std::span<const GroupTrace> Traces;
};

inline constexpr std::array<GroupTrace, 3> TempTraces{{
    {3, "Internal Temp", AlwaysWritten},
    {4, "External Temp 0", AlwaysWritten},
    {5, "External Temp 1", 5},
}};

inline constexpr std::array<GroupTrace, 17> VoltTraces{{
    {15, "Vbatt", 15},
    {16, "+5V", 16},
    {17, "-12V", 17},
    {18, "+12V", 18},
    {19, "Vccp", 19},
    {20, "Ain 0", 20},
    {21, "Ain 1", 21},
    {22, "Ain 2", 22},
    {23, "Ain 3", 23},
    {24, "Ain 4", 24},
    {25, "Ain 5", 25},
    {26, "Ain 6", 26},
    {27, "Ain 7", 27},
    {28, "Ain 8", 28},
    {29, "Ain 9", 29},
    {31, "3.3V Main", 30},
    {30, "3.3V STBY", 31},
}};

inline constexpr std::array<GroupTrace, 8> FanTraces{{
    {7, "Fan 0", 7},
    {8, "Fan 1", 8},
    {9, "Fan 2", 9},
    {10, "Fan 3", 10},
    {11, "Fan 4", 11},
    {12, "Fan 5", 12},
    {13, "Fan 6", 13},
    {14, "Fan 7", 14},
}};

/// @name The groups by the value of StripGroup, which is their heading row
/// @{
inline constexpr int TempGroup = 0;
inline constexpr int VoltGroup = 1;
inline constexpr int FanGroup = 2;
/// @}

inline constexpr std::array<StripGroupSetting, 3> StripGroups{{
    {"Temperature", "C", -128, 0, 125, 50, YOrder::LowerEndsFirst, TempTraces},
    {"Voltage", "V", 0, 0, 16, 16, YOrder::LowerEndsFirst, VoltTraces},
    {"RPM", "RPM", 2000, 3000, 15000, 15000, YOrder::UpperEndsFirst, FanTraces},
}};

} // namespace tqx
