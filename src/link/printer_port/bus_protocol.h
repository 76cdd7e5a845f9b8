#pragma once

#include <cstdint>

namespace tqx {

/// Commands of the chip's block transfers.
/// @{
inline constexpr std::uint8_t BlockWriteCommand = 0xA0;
inline constexpr std::uint8_t BlockReadCommand = 0xA1;
/// @}

/// The only count that a block read takes.
inline constexpr std::uint8_t BlockReadCount = 32;

/// What stands ahead of the data in a frame: address, command and count of a write, address and
/// count of a read.
/// @{
inline constexpr int WriteHead = 3;
inline constexpr int ReadHead = 2;

/// @}

/// The byte that opens a write to, or a read from, a slave address in 8-bit form, whatever its
/// bit 0.
/// @{
constexpr std::uint8_t WriteAddress(std::uint8_t slave) {
    return slave & 0xFE;
}

constexpr std::uint8_t ReadAddress(std::uint8_t slave) {
    return slave | 0x01;
}

/// @}

} // namespace tqx
