#include "printer_port/eeprom_coms.h"

#include "printer_port/slave_address.h"

namespace tqx {

EEPROMComs::EEPROMComs(LineLayer& lines)
    : m_lines(lines) {}

std::uint8_t EEPROMComs::ReadEEPROM() {
    StartAtAddress();
    m_lines.LineStart();
    SendAcknowledged(ReadAddress(m_slaveAddress));
    const std::uint8_t value = m_lines.ClockInByte();
    m_lines.ClockNack();
    m_lines.LineStop();
    return value;
}

void EEPROMComs::WriteEEPROM() {
    StartAtAddress();
    SendAcknowledged(m_data);
    m_lines.LineStop();
}

void EEPROMComs::StartAtAddress() {
    m_lines.LineStart();
    SendAcknowledged(WriteAddress(m_slaveAddress));
    SendAcknowledged(m_highByte);
    SendAcknowledged(m_lowByte);
}

void EEPROMComs::SendAcknowledged(std::uint8_t value) {
    m_lines.ClockOutByte(value);
    m_lines.ClockAck();
}

} // namespace tqx
