#pragma once

#include "simulated/chip_memory.h"

#include <cstdint>

namespace tqx {

/// The chip's address pointer: a register or an EEPROM address. It stays in its space: behind the
/// last address comes the first.
class ChipPointer {
public:
    /// The memory must outlive the pointer.
    explicit ChipPointer(ChipMemory& memory);

    void SelectRegister(std::uint8_t reg);
    /// `high` from 80h to 9Fh.
    void SelectEEPROM(std::uint8_t high, std::uint8_t low);

    std::uint8_t Read() const;
    void Write(std::uint8_t value) const;
    void Advance();

private:
    ChipMemory& m_memory;
    std::uint16_t m_address = 0;
    bool m_eeprom = false;
};

/// True for the first byte of an EEPROM address.
constexpr bool IsEEPROMHighByte(std::uint8_t value) {
    return value >= 0x80 && value <= 0x9F;
}

} // namespace tqx
