#include "faults/faulty_media.h"

#include "bus/byte_slave.h"
#include "bus/line_slave.h"

#include <link/link_error.h>

#include <string>
#include <utility>

namespace tqx::sim {

namespace {

using namespace std::chrono_literals;

/// A register read is some 200 port accesses.
constexpr auto SlowAccess = 100us;
constexpr auto SlowTransfer = 20ms;

/// The error of a call that fails because a fault was asked for.
LinkError RequestedFault(const std::string& what) {
    return {what, "the board was asked to fail", "Switch the fault off on the simulated board."};
}

} // namespace

FaultyPort::FaultyPort(std::unique_ptr<ParallelPort> port, const BoardWiring& wiring,
                       Faults& faults, BusPacer& pacer)
    : m_port(std::move(port))
    , m_wiring(wiring)
    , m_faults(faults)
    , m_pacer(pacer) {}

void FaultyPort::WriteData(std::uint8_t value) {
    Access();
    const LineLevels told = LevelsOf(m_wiring, value);
    LineLevels levels = told;
    levels.Data = levels.Data && !m_faults.Strikes(Fault::DataStuckLow);
    levels.Data = m_faults.Strikes(Fault::DataStuckHigh) || levels.Data;
    levels.Clock = levels.Clock && !m_faults.Strikes(Fault::ClockStuckLow);
    m_port->WriteData(levels == told ? value : WithLevels(m_wiring, value, levels));
}

std::uint8_t FaultyPort::ReadStatus() {
    Access();
    const std::uint8_t status = m_port->ReadStatus();
    if (m_faults.Strikes(Fault::DataStuckLow)) {
        return status & ~DataLineStatusBit;
    }
    return m_faults.Strikes(Fault::DataStuckHigh) ? status | DataLineStatusBit : status;
}

void FaultyPort::Access() {
    if (m_faults.Strikes(Fault::LinkFails)) {
        throw RequestedFault("cannot reach the simulated printer port");
    }
    if (m_faults.Strikes(Fault::SlowBus)) {
        m_pacer.Hold(SlowAccess);
    }
}

FaultySMBus::FaultySMBus(std::unique_ptr<SMBusLink> bus, Faults& faults, BusPacer& pacer)
    : m_bus(std::move(bus))
    , m_faults(faults)
    , m_pacer(pacer) {}

std::uint8_t FaultySMBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    Transfer();
    return m_faults.Strikes(Fault::DataStuckHigh) ? IdleBus : m_bus->ReadByte(address, reg);
}

void FaultySMBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    Transfer();
    if (!m_faults.Strikes(Fault::DataStuckHigh)) {
        m_bus->WriteByte(address, reg, value);
    }
}

void FaultySMBus::Transfer() {
    if (m_faults.Strikes(Fault::LinkFails)) {
        throw RequestedFault("cannot reach the simulated SMBus");
    }
    if (m_faults.Strikes(Fault::DataStuckLow) || m_faults.Strikes(Fault::ClockStuckLow)) {
        throw LinkError("cannot transfer on the simulated SMBus", "time-out, a line is held low",
                        "Release the line on the simulated board.");
    }
    if (m_faults.Strikes(Fault::SlowBus)) {
        m_pacer.Hold(SlowTransfer);
    }
}

} // namespace tqx::sim
