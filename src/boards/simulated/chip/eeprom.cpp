#include "simulated/eeprom.h"

#include <algorithm>
#include <string_view>

namespace tqx {

namespace {

constexpr std::uint8_t Erased = 0xFF;
constexpr std::string_view Name = "TQX7716";

} // namespace

EEPROM::EEPROM() {
    m_bytes.fill(Erased);
    std::copy(Name.begin(), Name.end(), m_bytes.begin());
}

std::uint8_t EEPROM::Read(std::uint16_t address) const {
    return m_bytes[address % Size];
}

void EEPROM::Write(std::uint16_t address, std::uint8_t value, EEPROMMode mode) {
    const std::size_t index = address % Size;
    if (mode == EEPROMMode::Write) {
        m_bytes[index] &= value;
    } else if (mode == EEPROMMode::Erase) {
        std::fill_n(m_bytes.begin() + (index - index % PageSize), PageSize, Erased);
    }
}

} // namespace tqx
