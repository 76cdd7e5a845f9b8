#include "printer_port/pport_block_com.h"

#include "link/pec.h"
#include "printer_port/bus_protocol.h"

#include <cstddef>
#include <span>
#include <stdexcept>

namespace tqx {

namespace {

/// The first `length` bytes of a frame.
std::span<const std::uint8_t> Part(const FrameBytes& frame, int length) {
    if (length > static_cast<int>(frame.size())) {
        throw std::out_of_range("the byte count of a block transfer does not fit its frame");
    }
    return std::span(frame).first(static_cast<std::size_t>(length));
}

} // namespace

PPortBlockCom::PPortBlockCom(BusOperations& bus, const LinkSetup& setup)
    : m_bus(bus)
    , m_setup(setup) {}

void PPortBlockCom::BlockWrite() {
    const auto data = Part(m_writeFrame, m_byteCount + WriteHead).subspan(WriteHead);
    m_bus.BusRelease();
    m_bus.BusStart();
    SendAcknowledged(WriteAddress(m_slaveAddress));
    SendAcknowledged(m_commandCode);
    SendAcknowledged(m_byteCount);
    FillWriteHead();
    for (const std::uint8_t value : data) {
        SendAcknowledged(value);
    }
    if (m_usePEC) {
        m_bus.SendBusByte(PECValue(-1));
        m_pecOK = !m_bus.AckStatus();
    }
    m_bus.BusStop();
}

void PPortBlockCom::BlockRead() {
    m_readFrame[0] = ReadAddress(m_slaveAddress);
    m_bus.BusStart();
    SendAcknowledged(WriteAddress(m_slaveAddress));
    SendAcknowledged(m_commandCode);
    m_bus.BusRelease();
    m_bus.BusStart();
    SendAcknowledged(ReadAddress(m_slaveAddress));
    m_byteCount = m_bus.ReadBusByte();
    if (m_byteCount != BlockReadCount) {
        if (m_setup.Notice) {
            m_setup.Notice("An error was detected", "The byte count read did not equal 32");
        }
        return;
    }
    m_bus.SendAck();
    m_readFrame[1] = m_byteCount;
    for (std::size_t i = ReadHead; i < BlockReadCount + ReadHead; ++i) {
        m_readFrame[i] = m_bus.ReadBusByte();
        m_bus.SendAck();
    }
    const std::uint8_t received = m_bus.ReadBusByte();
    m_readFrame[BlockReadCount + ReadHead] = received;
    m_bus.SendNack();
    m_bus.BusStop();
    if (m_usePEC) {
        m_pecOK = received == PECValue(0);
    }
}

void PPortBlockCom::SetupBlockData(std::uint8_t dataByte, std::uint8_t data) {
    m_writeFrame.at(dataByte) = data;
}

std::uint8_t PPortBlockCom::PECValue(std::int16_t direction) {
    FillWriteHead();
    m_readFrame[0] = ReadAddress(m_slaveAddress);
    m_readFrame[1] = m_byteCount;

    std::span<const std::uint8_t> covered;
    if (direction == -1) {
        covered = Part(m_writeFrame, m_byteCount + WriteHead);
    } else if (direction == 0) {
        covered = Part(m_readFrame, m_byteCount + ReadHead);
    }
    std::uint8_t sum = 0;
    for (std::size_t i = 0; i < covered.size(); ++i) {
        sum = PECStep(sum, covered[i]);
        m_trace[i] = sum;
    }
    m_pec = sum;
    return sum;
}

void PPortBlockCom::FillWriteHead() {
    m_writeFrame[0] = m_slaveAddress;
    m_writeFrame[1] = m_commandCode;
    m_writeFrame[2] = m_byteCount;
}

void PPortBlockCom::SendAcknowledged(std::uint8_t value) {
    m_bus.SendBusByte(value);
    m_bus.WaitAck();
}

} // namespace tqx
