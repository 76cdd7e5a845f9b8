#pragma once

#include <array>
#include <cstdint>

namespace tqx::sim {

/// Addresses of the registers in which the modelled chip does more than store a byte.
namespace chipreg {
inline constexpr std::uint8_t Config1 = 0x00;
inline constexpr std::uint8_t Config2 = 0x01;
inline constexpr std::uint8_t FanDivisors = 0x02;
inline constexpr std::uint8_t Config3 = 0x07;
inline constexpr std::uint8_t GPIOConfig = 0x08;
inline constexpr std::uint8_t IntThermLimit = 0x0D;
inline constexpr std::uint8_t Ext1ThermLimit = 0x0E;
inline constexpr std::uint8_t Ext2ThermLimit = 0x0F;
inline constexpr std::uint8_t EEPROMMode = 0x13;
inline constexpr std::uint8_t CompanyID = 0x16;
inline constexpr std::uint8_t Revision = 0x17;
inline constexpr std::uint8_t IntOffset = 0x1E;
inline constexpr std::uint8_t IntTemp = 0x1F;
inline constexpr std::uint8_t Status1 = 0x20;
inline constexpr std::uint8_t Status4 = 0x23;
inline constexpr std::uint8_t Status5 = 0x24;
inline constexpr std::uint8_t Status6 = 0x25;
inline constexpr std::uint8_t FirstValue = 0x26;
inline constexpr std::uint8_t Ext2OrAin9 = 0x29;
inline constexpr std::uint8_t LastValue = 0x3F;
inline constexpr std::uint8_t Ext1Offset = 0x6E;
inline constexpr std::uint8_t Ext2Offset = 0x6F;
} // namespace chipreg

/// Bits of those registers.
namespace chipbit {
/// Config1: the chip measures; clear, the values stand still.
inline constexpr std::uint8_t Monitor = 0x01;
/// Config1: the shared pins are Ain8 and Ain9 and not the second external diode.
inline constexpr std::uint8_t VoltsNotExt2 = 0x08;
/// Config1: a fan control, by DAC or by PWM, runs on its own.
inline constexpr std::uint8_t AutomaticFans = 0x60;
/// Config3: the shared pin is GPIO16 and not THERM.
inline constexpr std::uint8_t GPIO16NotTherm = 0x01;
inline constexpr std::uint8_t ClearIntrusion = 0x02;
/// Config3: direction and polarity of GPIO16.
inline constexpr std::uint8_t GPIO16Output = 0x40;
inline constexpr std::uint8_t GPIO16ActiveHigh = 0x80;
/// EEPROMMode.
inline constexpr std::uint8_t WriteProtect = 0x08;
/// Status4.
inline constexpr std::uint8_t ThermStatus = 0x08;
inline constexpr std::uint8_t FanControlStatus = 0x10;
inline constexpr std::uint8_t IntrusionStatus = 0x40;
inline constexpr std::uint8_t GPIO16Level = 0x80;
} // namespace chipbit

/// All registers of the chip, the index is the address.
using RegisterBytes = std::array<std::uint8_t, 256>;

/// The registers after power has come on: measuring, shared pins are fans, the second external
/// diode and THERM, divisors 8, limits so wide that nothing alarms.
RegisterBytes PowerOnRegisters();

/// True for the registers that a write leaves as they are: identity, measured values and the
/// status of the measured values.
constexpr bool IsReadOnly(std::uint8_t reg) {
    return reg == chipreg::CompanyID || reg == chipreg::Revision || reg == chipreg::IntTemp ||
           (reg >= chipreg::Status1 && reg < chipreg::Status4) ||
           (reg >= chipreg::FirstValue && reg <= chipreg::LastValue);
}

} // namespace tqx::sim
