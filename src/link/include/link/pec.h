#pragma once

#include <cstdint>

namespace tqx {

/// Takes one byte into a running packet error code: the CRC-8 of the SMBus, polynomial
/// x^8 + x^2 + x + 1, most significant bit first. A frame starts at 00h.
constexpr std::uint8_t PECStep(std::uint8_t sum, std::uint8_t data) {
    for (int bit = 7; bit >= 0; --bit) {
        const int feedback = ((sum >> 7) ^ (data >> bit)) & 1;
        sum = static_cast<std::uint8_t>(sum << 1);
        sum = static_cast<std::uint8_t>(sum ^ feedback ^ (feedback << 1) ^ (feedback << 2));
    }
    return sum;
}

} // namespace tqx
