#pragma once

#include "bus/bus_pacer.h"
#include "simulated/faults.h"

#include <link/board_wiring.h>
#include <link/link_server.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <memory>

namespace tqx::sim {

/// A printer port whose lines may be stuck, which may be slow, and whose calls may fail.
class FaultyPort : public ParallelPort {
public:
    /// The wiring of the board on the port, which may change meanwhile. It, faults and pacer must
    /// outlive this.
    FaultyPort(std::unique_ptr<ParallelPort> port, const BoardWiring& wiring, Faults& faults,
               BusPacer& pacer);

    std::uint16_t BaseAddress() override { return m_port->BaseAddress(); }

    void WriteData(std::uint8_t value) override;
    std::uint8_t ReadStatus() override;

    void Hold(bool hold) override { m_port->Hold(hold); }

    void Delay(std::chrono::nanoseconds time) override { m_port->Delay(time); }

private:
    void Access();

    std::unique_ptr<ParallelPort> m_port;
    const BoardWiring& m_wiring;
    Faults& m_faults;
    BusPacer& m_pacer;
};

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

} // namespace tqx::sim
