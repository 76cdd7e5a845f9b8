#include "bus/block_transfers.h"

#include "chip/eeprom.h"

#include <link/pec.h>

namespace tqx::sim {

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

IncomingBlock::IncomingBlock(std::uint8_t address)
    : m_pec(PECStep(PECStep(0, address), BlockWriteCommand)) {}

bool IncomingBlock::Take(std::uint8_t value, ChipPointer& pointer) {
    switch (m_state) {
    case State::Count:
        return TakeCount(value);
    case State::Data:
        m_data[m_taken++] = value;
        m_pec = PECStep(m_pec, value);
        m_state = m_taken == m_count ? State::PEC : State::Data;
        return true;
    case State::PEC:
        m_state = State::Over;
        if (value != m_pec) {
            return false;
        }
        Store(pointer);
        return true;
    case State::Over:
        break;
    }
    return false;
}

void IncomingBlock::Stop(ChipPointer& pointer) {
    if (m_state == State::PEC) {
        Store(pointer);
    }
    m_state = State::Over;
}

bool IncomingBlock::TakeCount(std::uint8_t value) {
    if (value > BlockSize) {
        m_state = State::Over;
        return false;
    }
    m_count = value;
    m_pec = PECStep(m_pec, value);
    m_state = m_count == 0 ? State::PEC : State::Data;
    return true;
}

void IncomingBlock::Store(ChipPointer& pointer) {
    for (std::size_t i = 0; i < m_count; ++i) {
        pointer.Write(m_data.at(i));
        pointer.Advance();
    }
}

OutgoingBlock::OutgoingBlock(std::uint8_t address)
    : m_pec(PECStep(0, address)) {}

std::uint8_t OutgoingBlock::Next(ChipPointer& pointer) {
    const int position = m_position++;
    if (position > BlockSize) {
        return position == BlockSize + 1 ? m_pec : IdleBus;
    }
    std::uint8_t value = BlockSize;
    if (position > 0) {
        value = pointer.Read();
        pointer.Advance();
    }
    m_pec = PECStep(m_pec, value);
    return value;
}

} // namespace tqx::sim
