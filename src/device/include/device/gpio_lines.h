#pragma once

#include "device/register_addresses.h"

#include <cstdint>

/// Where the settings of the 17 GPIO lines stand in the chip's registers.
namespace tqx::gpio {

inline constexpr int LineCount = 17;
/// Lines 0 to 7 share their pins with the fan inputs; line 16 shares its pin with THERM.
inline constexpr int FanLineCount = 8;
inline constexpr int ThermLine = 16;
/// Lines 0 to 15 stand four to a register, from GPIOConfig1 on.
inline constexpr int LinesInRegister = 4;
inline constexpr int ConfigRegisterCount = 4;

/// @name Bits of Config3 (07h)
/// @{
inline constexpr std::uint8_t ThermEnable = 0x01;
inline constexpr std::uint8_t ThermDirection = 0x40;
inline constexpr std::uint8_t ThermPolarity = 0x80;

/// @}

/// The configuration register `r` of lines 4r to 4r + 3.
constexpr std::uint8_t ConfigRegister(int r) {
    return static_cast<std::uint8_t>(reg::GPIOConfig1 + r);
}

/// In its configuration register, the direction bit of the `j`th of four lines: set for output.
constexpr unsigned DirectionBit(int j) {
    return 1U << (2 * j);
}

/// In its configuration register, the polarity bit of the `j`th of four lines: set for high.
constexpr unsigned PolarityBit(int j) {
    return 2U << (2 * j);
}

} // namespace tqx::gpio
