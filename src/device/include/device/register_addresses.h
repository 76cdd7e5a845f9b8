#pragma once

#include <cstdint>

/// Addresses of the registers that the program itself reads and writes.
namespace tqx::reg {

inline constexpr std::uint8_t Config1 = 0x00;
inline constexpr std::uint8_t Config2 = 0x01;
inline constexpr std::uint8_t FanDivisors0To3 = 0x02;
inline constexpr std::uint8_t FanDivisors4To7 = 0x03;
inline constexpr std::uint8_t Config3 = 0x07;
inline constexpr std::uint8_t GPIOConfig1 = 0x08;
inline constexpr std::uint8_t GPIOConfig3 = 0x0A;
inline constexpr std::uint8_t GPIOConfig4 = 0x0B;
inline constexpr std::uint8_t EEPROM3 = 0x13; ///< control register of the EEPROM mode
inline constexpr std::uint8_t CompanyID = 0x16;
inline constexpr std::uint8_t Mask6 = 0x1D;
inline constexpr std::uint8_t Status1 = 0x20;
inline constexpr std::uint8_t Status2 = 0x21;
inline constexpr std::uint8_t Status3 = 0x22;
inline constexpr std::uint8_t Status4 = 0x23;
inline constexpr std::uint8_t Status5 = 0x24;
inline constexpr std::uint8_t Status6 = 0x25;
inline constexpr std::uint8_t Fan0HighLimit = 0x60; ///< the first of eight, fan by fan

} // namespace tqx::reg
