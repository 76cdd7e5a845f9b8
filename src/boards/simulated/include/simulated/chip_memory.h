#pragma once

#include <cstdint>

namespace tqx {

/// The chip's two address spaces, as a bus transfer sees them.
class ChipMemory {
public:
    virtual ~ChipMemory() = default;

    virtual std::uint8_t Read(std::uint8_t reg) = 0;
    virtual void Write(std::uint8_t reg, std::uint8_t value) = 0;

    /// EEPROM addresses run from 0 to 8191.
    virtual std::uint8_t ReadEEPROM(std::uint16_t address) = 0;
    /// Programs or erases, as the mode register says, or does nothing.
    virtual void WriteEEPROM(std::uint16_t address, std::uint8_t value) = 0;
};

} // namespace tqx
