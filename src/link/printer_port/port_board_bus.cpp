#include "printer_port/port_board_bus.h"

#include "printer_port/bus_protocol.h"

#include <algorithm>
#include <cstddef>

namespace tqx {

bool HeldLines::AckStatus() {
    const bool refused = m_lines->ClockAck();
    if (m_pause > std::chrono::nanoseconds::zero()) {
        m_lines->Pause(m_pause);
    }
    return refused;
}

PortBoardBus::PortBoardBus(PrinterPorts& ports, const LinkSetup& setup)
    : m_ports(ports)
    , m_block(m_lines, setup) {}

void PortBoardBus::BoardMode(bool mode) {
    if (mode != m_boardMode) {
        m_boardMode = mode;
        m_ports.Wiring(WiringOf(mode));
    }
}

std::uint8_t PortBoardBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    return m_ports.Transfer([&](LineLayer& lines) {
        lines.LineStart();
        lines.SendAcknowledged(WriteAddress(address));
        lines.SendAcknowledged(reg);
        lines.ReleaseLines();
        lines.LineStart();
        lines.SendAcknowledged(ReadAddress(address));
        const std::uint8_t value = lines.ClockInByte();
        lines.ClockNack();
        lines.LineStop();
        return value;
    });
}

void PortBoardBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    m_ports.Transfer([&](LineLayer& lines) {
        lines.LineStart();
        lines.SendAcknowledged(WriteAddress(address));
        lines.SendAcknowledged(reg);
        lines.SendAcknowledged(value);
        lines.LineStop();
    });
}

void PortBoardBus::ByteDelay(float seconds) {
    const std::chrono::duration<float> pause(seconds > 0 ? std::min(seconds, 1.0F) : 0.0F);
    m_byteDelay = std::chrono::duration_cast<std::chrono::nanoseconds>(pause);
}

void PortBoardBus::BlockRead(std::uint8_t /*first*/, std::uint8_t /*second*/, std::uint8_t& out) {
    m_block.SlaveAddress(m_slaveAddress);
    m_block.CommandCode(BlockReadCommand);
    m_ports.Transfer([this](LineLayer& lines) {
        m_lines.Take(lines, std::chrono::nanoseconds::zero());
        m_block.BlockRead();
    });
    out = m_block.ByteCount();
}

void PortBoardBus::BlockWrite(std::uint8_t count, const WriteBlock& frame) {
    m_block.SlaveAddress(m_slaveAddress);
    m_block.CommandCode(BlockWriteCommand);
    m_block.ByteCount(count);
    for (int i = WriteHead; i < count + WriteHead; ++i) {
        m_block.SetupBlockData(static_cast<std::uint8_t>(i), frame.at(static_cast<std::size_t>(i)));
    }
    m_ports.Transfer([this](LineLayer& lines) {
        m_lines.Take(lines, m_byteDelay);
        m_block.BlockWrite();
    });
}

void PortBoardBus::SendBusByte(std::uint8_t value) {
    m_ports.Transfer([value](LineLayer& lines) { lines.ClockOutByte(value); });
}

} // namespace tqx
