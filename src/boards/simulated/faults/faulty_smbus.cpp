#include "faults/faulty_smbus.h"

#include "faults/requested_fault.h"
#include "simulated/byte_slave.h"

#include <utility>

namespace tqx {

namespace {

using namespace std::chrono_literals;

constexpr auto SlowTransfer = 20ms;

} // namespace

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

} // namespace tqx
