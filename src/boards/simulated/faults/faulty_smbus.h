#pragma once

#include "simulated/bus_pacer.h"
#include "simulated/faults.h"

#include <link/link_server.h>

#include <cstdint>
#include <memory>

namespace tqx {

/// A host's SMBus whose lines may be stuck, which may be slow, and whose calls may fail. A line
/// held low lets the host controller run into its time limit, which is a LinkError; a data line
/// held high is a bus on which nobody answers.
class FaultySMBus : public SMBusLink {
public:
    /// Faults and pacer must outlive this.
    FaultySMBus(std::unique_ptr<SMBusLink> bus, Faults& faults, BusPacer& pacer);

    std::uint8_t SlaveAddress() override { return m_bus->SlaveAddress(); }

    void SlaveAddress(std::uint8_t address) override { m_bus->SlaveAddress(address); }

    std::uint32_t BaseAddress() override { return m_bus->BaseAddress(); }

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override;
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override;

private:
    void Transfer();

    std::unique_ptr<SMBusLink> m_bus;
    Faults& m_faults;
    BusPacer& m_pacer;
};

} // namespace tqx
