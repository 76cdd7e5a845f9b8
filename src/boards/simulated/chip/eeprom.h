#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tqx::sim {

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
    EEPROM() {
        constexpr std::string_view name = "TQX7716";
        m_bytes.fill(Erased);
        std::copy(name.begin(), name.end(), m_bytes.begin());
    }

    std::uint8_t Read(std::uint16_t address) const { return m_bytes[address % Size]; }

    /// A write on the bus. Write mode programs the byte, which can only clear bits; erase mode
    /// sets the page around the address to FFh, whatever the value.
    void Write(std::uint16_t address, std::uint8_t value, EEPROMMode mode) {
        const std::size_t index = address % Size;
        if (mode == EEPROMMode::Write) {
            m_bytes[index] &= value;
        } else if (mode == EEPROMMode::Erase) {
            std::fill_n(m_bytes.begin() + (index - index % PageSize), PageSize, Erased);
        }
    }

private:
    static constexpr std::uint8_t Erased = 0xFF;

    std::array<std::uint8_t, Size> m_bytes;
};

} // namespace tqx::sim
