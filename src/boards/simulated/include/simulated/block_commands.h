#pragma once

#include <cstdint>

namespace tqx {

/// Commands of the chip's block transfers.
/// @{
inline constexpr std::uint8_t BlockWriteCommand = 0xA0;
inline constexpr std::uint8_t BlockReadCommand = 0xA1;
/// @}

/// Most data bytes of a block; a block read always has as many.
inline constexpr std::uint8_t BlockSize = 32;

} // namespace tqx
