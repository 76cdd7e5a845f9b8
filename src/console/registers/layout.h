#pragma once

#include <device/register_map.h>

#include <array>
#include <cstdint>

namespace tqx {

/// Columns on each tab's page.
inline constexpr int RowColumns = 3;

/// Registers `First` to `Last`, one below the other, in a column of their tab's page.
struct RowRun {
    RegisterTab Tab;
    int Column;
    std::uint8_t First;
    std::uint8_t Last;
};

/// Where the rows of the register console stand: the runs of a column follow each other downward.
/// A channel's value, high limit and low limit stand side by side wherever it has all three.
inline constexpr std::array<RowRun, 33> RowRuns{{
    {RegisterTab::Main, 0, 0x16, 0x17},

    {RegisterTab::GPIO, 0, 0x08, 0x0B},

    {RegisterTab::AIN, 0, 0x30, 0x37},     {RegisterTab::AIN, 0, 0x27, 0x27},
    {RegisterTab::AIN, 1, 0x50, 0x57},     {RegisterTab::AIN, 1, 0x6C, 0x6C},
    {RegisterTab::AIN, 2, 0x58, 0x5F},     {RegisterTab::AIN, 2, 0x6D, 0x6D},

    {RegisterTab::Temp, 0, 0x1F, 0x1F},    {RegisterTab::Temp, 0, 0x28, 0x29},
    {RegisterTab::Temp, 0, 0x0D, 0x0F},    {RegisterTab::Temp, 1, 0x68, 0x68},
    {RegisterTab::Temp, 1, 0x40, 0x41},    {RegisterTab::Temp, 1, 0x10, 0x12},
    {RegisterTab::Temp, 2, 0x69, 0x69},    {RegisterTab::Temp, 2, 0x48, 0x49},
    {RegisterTab::Temp, 2, 0x1E, 0x1E},    {RegisterTab::Temp, 2, 0x6E, 0x6F},

    {RegisterTab::Voltage, 0, 0x2A, 0x2F}, {RegisterTab::Voltage, 0, 0x26, 0x26},
    {RegisterTab::Voltage, 1, 0x42, 0x47}, {RegisterTab::Voltage, 1, 0x6A, 0x6A},
    {RegisterTab::Voltage, 2, 0x4A, 0x4F}, {RegisterTab::Voltage, 2, 0x6B, 0x6B},

    {RegisterTab::Fans, 0, 0x38, 0x3F},    {RegisterTab::Fans, 1, 0x60, 0x67},
    {RegisterTab::Fans, 2, 0x02, 0x05},

    {RegisterTab::Config, 0, 0x00, 0x01},  {RegisterTab::Config, 0, 0x06, 0x07},
    {RegisterTab::Config, 0, 0x0C, 0x0C},  {RegisterTab::Config, 0, 0x13, 0x15},
    {RegisterTab::Config, 1, 0x18, 0x1D},  {RegisterTab::Config, 2, 0x20, 0x25},
}};

} // namespace tqx
