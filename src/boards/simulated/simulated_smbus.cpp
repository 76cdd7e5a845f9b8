#include "simulated_smbus.h"

namespace tqx::sim {

namespace {

/// Start, repeated start and stop take a bit time each, a byte with its acknowledge nine.
constexpr int ReadBitTimes = 4 * 9 + 3;
constexpr int WriteBitTimes = 3 * 9 + 2;

constexpr std::uint8_t HighestAddress = 0x7F;

constexpr std::uint8_t InEightBits(std::uint8_t address) {
    return static_cast<std::uint8_t>(address << 1);
}

} // namespace

SimulatedSMBus::SimulatedSMBus(ByteSlave& slave, BusPacer& pacer)
    : m_slave(slave)
    , m_pacer(pacer) {}

std::uint8_t SimulatedSMBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    const bool answered = Select(address, reg) && Start(InEightBits(address) | ReadBit);
    const std::uint8_t value = answered ? Receive() : IdleBus;
    m_slave.Stop();
    m_pacer.BitTimes(ReadBitTimes);
    return value;
}

void SimulatedSMBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    if (Select(address, reg)) {
        Send(value);
    }
    m_slave.Stop();
    m_pacer.BitTimes(WriteBitTimes);
}

bool SimulatedSMBus::Select(std::uint8_t address, std::uint8_t reg) {
    return address <= HighestAddress && Start(InEightBits(address)) && Send(reg);
}

bool SimulatedSMBus::Start(std::uint8_t address) {
    const bool acknowledged = m_slave.Start(address);
    m_slave.Passed(address, acknowledged);
    return acknowledged;
}

bool SimulatedSMBus::Send(std::uint8_t value) {
    const bool acknowledged = m_slave.Write(value);
    m_slave.Passed(value, acknowledged);
    return acknowledged;
}

/// The last byte of a read, which the host does not acknowledge.
std::uint8_t SimulatedSMBus::Receive() {
    const std::uint8_t value = m_slave.Read();
    m_slave.Passed(value, false);
    return value;
}

} // namespace tqx::sim
