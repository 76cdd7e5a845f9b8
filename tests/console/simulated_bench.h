#pragma once

#include <device/bench.h>
#include <simulated/simulated_board.h>

#include <chrono>

namespace tqx::test {

/// A bench with the chip of a simulated board chosen on its printer port, as the search leaves it.
/// Time stands still on the board, so that a measured value is the same at every look.
class SimulatedBench {
public:
    SimulatedBench() {
        Bench.Link->ActiveMedium(ActivePrinterPort);
        Bus().SlaveAddress(0x58);
        Bench.Bus.BusCell = {.SlaveAddress = 0x58,
                             .PortAddress = Bus().PortAddress(),
                             .ComsMedium = ComsPrinterPort};
    }

    BoardBus& Bus() { return Bench.Link->PrinterPortLink().BoardBus(); }

    sim::SimulatedBoard Board{{.Now = [] { return std::chrono::seconds{60}; }}};
    tqx::Bench Bench{Board.Factory()};
};

} // namespace tqx::test
