#include "bus/chip_slave.h"

namespace tqx::sim {

ChipSlave::ChipSlave(ChipMemory& memory, std::uint8_t address)
    : m_pointer(memory)
    , m_address(address) {}

bool ChipSlave::Start(std::uint8_t address) {
    const Phase before = m_phase;
    m_phase = Phase::Idle;
    m_outgoing.reset();
    m_accessed = false;
    if ((address & ~ReadBit) != m_address) {
        return false;
    }
    if ((address & ReadBit) == 0) {
        m_phase = Phase::Command;
        return true;
    }
    if (before == Phase::BlockOut) {
        m_outgoing.emplace(address);
    } else if (before == Phase::BlockIn && !m_incoming->Begun()) {
        m_pointer.SelectRegister(BlockWriteCommand);
    }
    return true;
}

bool ChipSlave::Write(std::uint8_t value) {
    switch (m_phase) {
    case Phase::Command:
        TakeCommand(value);
        return true;
    case Phase::EEPROMLow:
        m_pointer.SelectEEPROM(m_command, value);
        m_phase = Phase::Data;
        return true;
    case Phase::Data:
        StepOn();
        m_pointer.Write(value);
        return true;
    case Phase::BlockIn:
        return m_incoming->Take(value, m_pointer);
    case Phase::Idle:
    case Phase::BlockOut:
        break;
    }
    return false;
}

std::uint8_t ChipSlave::Read() {
    if (m_outgoing) {
        return m_outgoing->Next(m_pointer);
    }
    StepOn();
    return m_pointer.Read();
}

void ChipSlave::Stop() {
    if (m_phase == Phase::BlockIn) {
        m_incoming->Stop(m_pointer);
    }
    m_phase = Phase::Idle;
}

void ChipSlave::TakeCommand(std::uint8_t command) {
    m_command = command;
    switch (command) {
    case BlockWriteCommand:
        m_incoming.emplace(m_address);
        m_phase = Phase::BlockIn;
        return;
    case BlockReadCommand:
        m_phase = Phase::BlockOut;
        return;
    default:
        m_pointer.SelectRegister(command);
        m_phase = IsEEPROMHighByte(command) ? Phase::EEPROMLow : Phase::Data;
    }
}

void ChipSlave::StepOn() {
    if (m_accessed) {
        m_pointer.Advance();
    }
    m_accessed = true;
}

} // namespace tqx::sim
