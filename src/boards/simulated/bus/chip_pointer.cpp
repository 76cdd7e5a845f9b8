#include "simulated/chip_pointer.h"

#include "simulated/eeprom.h"

namespace tqx {

ChipPointer::ChipPointer(ChipMemory& memory)
    : m_memory(memory) {}

void ChipPointer::SelectRegister(std::uint8_t reg) {
    m_address = reg;
    m_eeprom = false;
}

void ChipPointer::SelectEEPROM(std::uint8_t high, std::uint8_t low) {
    m_address = static_cast<std::uint16_t>((high << 8 | low) % EEPROM::Size);
    m_eeprom = true;
}

std::uint8_t ChipPointer::Read() const {
    return m_eeprom ? m_memory.ReadEEPROM(m_address)
                    : m_memory.Read(static_cast<std::uint8_t>(m_address));
}

void ChipPointer::Write(std::uint8_t value) const {
    if (m_eeprom) {
        m_memory.WriteEEPROM(m_address, value);
    } else {
        m_memory.Write(static_cast<std::uint8_t>(m_address), value);
    }
}

void ChipPointer::Advance() {
    const int size = m_eeprom ? EEPROM::Size : 256;
    m_address = static_cast<std::uint16_t>((m_address + 1) % size);
}

} // namespace tqx
