#pragma once

#include "simulated/bus_pacer.h"
#include "simulated/faults.h"

#include <link/board_wiring.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <memory>

namespace tqx {

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

} // namespace tqx
