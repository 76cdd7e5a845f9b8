#include "simulated_smbus.h"

namespace tqx {

namespace {

/// Start, repeated start and stop take a bit time each, a byte with its acknowledge nine.
constexpr int ReadBitTimes = 4 * 9 + 3;
constexpr int WriteBitTimes = 3 * 9 + 2;

constexpr std::uint8_t HighestAddress = 0x7F;

constexpr std::uint8_t WriteAddress(std::uint8_t address) {
    return static_cast<std::uint8_t>(address << 1);
}

} // namespace

SimulatedSMBus::SimulatedSMBus(ByteSlave& slave, BusPacer& pacer)
    : m_slave(slave)
    , m_pacer(pacer) {}

std::uint8_t SimulatedSMBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    const bool answered = Select(address, reg) && m_slave.Start(WriteAddress(address) | ReadBit);
    const std::uint8_t value = answered ? m_slave.Read() : IdleBus;
    m_slave.Stop();
    m_pacer.BitTimes(ReadBitTimes);
    return value;
}

void SimulatedSMBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    if (Select(address, reg)) {
        m_slave.Write(value);
    }
    m_slave.Stop();
    m_pacer.BitTimes(WriteBitTimes);
}

bool SimulatedSMBus::Select(std::uint8_t address, std::uint8_t reg) {
    return address <= HighestAddress && m_slave.Start(WriteAddress(address)) && m_slave.Write(reg);
}

} // namespace tqx
