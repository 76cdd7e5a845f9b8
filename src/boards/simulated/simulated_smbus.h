#pragma once

#include "bus/bus_pacer.h"
#include "bus/byte_slave.h"

#include <link/link_server.h>

#include <cstdint>

namespace tqx::sim {

/// A host's SMBus with a bus slave on it. Where nobody answers a read gives FFh and a write goes
/// nowhere, also at an address that does not fit seven bits.
class SimulatedSMBus : public SMBusLink {
public:
    static constexpr std::uint32_t Base = 0x5000;

    /// Slave and pacer must outlive the bus.
    SimulatedSMBus(ByteSlave& slave, BusPacer& pacer);

    std::uint8_t SlaveAddress() override { return m_slaveAddress; }
    void SlaveAddress(std::uint8_t address) override { m_slaveAddress = address; }

    std::uint32_t BaseAddress() override { return Base; }

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override;
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override;

private:
    bool Select(std::uint8_t address, std::uint8_t reg);
    bool Start(std::uint8_t address);
    bool Send(std::uint8_t value);
    std::uint8_t Receive();

    ByteSlave& m_slave;
    BusPacer& m_pacer;
    std::uint8_t m_slaveAddress = 0;
};

} // namespace tqx::sim
