#include "printer_port/eeprom_coms.h"

#include "printer_port/bus_protocol.h"

namespace tqx {

EEPROMComs::EEPROMComs(LineLayer& lines)
    : m_lines(lines) {}

std::uint8_t EEPROMComs::ReadEEPROM() {
    StartAtAddress();
    m_lines.LineStart();
    m_lines.SendAcknowledged(ReadAddress(m_slaveAddress));
    const std::uint8_t value = m_lines.ClockInByte();
    m_lines.ClockNack();
    m_lines.LineStop();
    return value;
}

void EEPROMComs::WriteEEPROM() {
    StartAtAddress();
    m_lines.SendAcknowledged(m_data);
    m_lines.LineStop();
}

void EEPROMComs::StartAtAddress() {
    m_lines.LineStart();
    m_lines.SendAcknowledged(WriteAddress(m_slaveAddress));
    m_lines.SendAcknowledged(m_highByte);
    m_lines.SendAcknowledged(m_lowByte);
}

} // namespace tqx
