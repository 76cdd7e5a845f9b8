#pragma once

#include "bus/bus_pacer.h"
#include "bus/line_slave.h"

#include <link/board_wiring.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>

namespace tqx::sim {

/// A printer port at 378h with a board on it, whose lines lead to a bus slave.
///
/// A bit time is a clock pulse: Delay takes none of its own, so that a transfer takes the same time
/// however its sender slices it.
class SimulatedPort : public ParallelPort {
public:
    static constexpr std::uint16_t Base = 0x378;

    /// All must outlive the port. The wiring may change meanwhile.
    SimulatedPort(ByteSlave& slave, const BoardWiring& wiring, BusPacer& pacer)
        : m_lines(slave)
        , m_wiring(wiring)
        , m_pacer(pacer) {}

    std::uint16_t BaseAddress() override { return Base; }

    void WriteData(std::uint8_t value) override {
        m_lines.Drive(LevelsOf(m_wiring, value));
        m_pacer.BitTimes(m_lines.TakeBitTimes());
    }

    std::uint8_t ReadStatus() override {
        // The other status bits: no printer is there, so its inputs float high.
        constexpr std::uint8_t idle = 0x6F;
        return m_lines.DataLine() ? idle | DataLineStatusBit : idle;
    }

    void Hold(bool) override {}

    void Delay(std::chrono::nanoseconds) override {}

private:
    LineSlave m_lines;
    const BoardWiring& m_wiring;
    BusPacer& m_pacer;
};

} // namespace tqx::sim
