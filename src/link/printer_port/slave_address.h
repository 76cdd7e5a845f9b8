#pragma once

#include <cstdint>

namespace tqx {

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
