#include "simulated_port.h"

#include "bus/wired_lines.h"

namespace tqx {

namespace {

/// The other status bits: no printer is there, so its inputs float high.
constexpr std::uint8_t IdleStatus = 0x6F;

} // namespace

SimulatedPort::SimulatedPort(ByteSlave& slave, const BoardWiring& wiring, BusPacer& pacer)
    : m_lines(slave)
    , m_wiring(wiring)
    , m_pacer(pacer) {}

void SimulatedPort::WriteData(std::uint8_t value) {
    m_lines.Drive(LevelsOf(m_wiring, value));
    m_pacer.BitTimes(m_lines.TakeBitTimes());
}

std::uint8_t SimulatedPort::ReadStatus() {
    return m_lines.DataLine() ? IdleStatus | DataLineStatusBit : IdleStatus;
}

} // namespace tqx
