#include "faults/faulty_port.h"

#include "bus/wired_lines.h"
#include "faults/requested_fault.h"

#include <utility>

namespace tqx {

namespace {

using namespace std::chrono_literals;

/// A register read is some 200 port accesses.
constexpr auto SlowAccess = 100us;

} // namespace

FaultyPort::FaultyPort(std::unique_ptr<ParallelPort> port, const BoardWiring& wiring,
                       Faults& faults, BusPacer& pacer)
    : m_port(std::move(port))
    , m_wiring(wiring)
    , m_faults(faults)
    , m_pacer(pacer) {}

void FaultyPort::WriteData(std::uint8_t value) {
    Access();
    LineLevels levels = LevelsOf(m_wiring, value);
    levels.Data = levels.Data && !m_faults.Strikes(Fault::DataStuckLow);
    levels.Data = m_faults.Strikes(Fault::DataStuckHigh) || levels.Data;
    levels.Clock = levels.Clock && !m_faults.Strikes(Fault::ClockStuckLow);
    m_port->WriteData(WithLevels(m_wiring, value, levels));
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

} // namespace tqx
