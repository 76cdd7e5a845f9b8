#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tqx {

/// What a bus write to an EEPROM address does.
enum class EEPROMMode : std::uint8_t { None, Write, Erase };

/// The mode that a value of the EEPROM's mode register selects. Write protection, more than one
/// mode at a time and read mode let nothing be written.
constexpr EEPROMMode EEPROMModeOf(std::uint8_t modeRegister) {
    switch (modeRegister & 0x0F) {
    case 0x02:
        return EEPROMMode::Write;
    case 0x04:
        return EEPROMMode::Erase;
    default:
        return EEPROMMode::None;
    }
}

/// The chip's EEPROM: 8192 bytes in pages of 64. It keeps its content when the power goes.
class EEPROM {
public:
    static constexpr std::uint16_t Size = 8192;
    static constexpr std::uint16_t PageSize = 64;

    /// Erased, but for a short name of the chip in the first bytes.
    EEPROM();

    std::uint8_t Read(std::uint16_t address) const;

    /// A write on the bus. Write mode programs the byte, which can only clear bits; erase mode
    /// sets the page around the address to FFh, whatever the value.
    void Write(std::uint16_t address, std::uint8_t value, EEPROMMode mode);

private:
    std::array<std::uint8_t, Size> m_bytes;
};

} // namespace tqx
