#pragma once

#include <cstdint>

/// How the EEPROM is laid out: 32 blocks of 256 bytes, told by the high address byte, each of four
/// pages that are erased as a whole. And the bits of "EEPROM 3" (13h), which rule it.
namespace tqx::eeprom {

inline constexpr int FirstHighByte = 0x80;
inline constexpr int LastHighByte = 0x9F;
inline constexpr int BlockCount = LastHighByte - FirstHighByte + 1;
inline constexpr int BlockSize = 256;
inline constexpr int PageSize = 64;
inline constexpr int PagesInBlock = BlockSize / PageSize;

/// The low address byte at which page `k` of a block begins.
constexpr std::uint8_t PageStart(int k) {
    return static_cast<std::uint8_t>(k * PageSize);
}

/// @name Bits of "EEPROM 3"; one of the first three selects the mode
/// @{
inline constexpr std::uint8_t ReadBit = 0x01;
inline constexpr std::uint8_t WriteBit = 0x02;
inline constexpr std::uint8_t EraseBit = 0x04;
inline constexpr std::uint8_t WriteProtectBit = 0x08;
inline constexpr std::uint8_t ClockExtendBit = 0x80;
/// @}

/// The pause of an EEPROM that programs a byte or clears a page, in seconds.
inline constexpr float ProgramPause = 0.1F;

} // namespace tqx::eeprom
