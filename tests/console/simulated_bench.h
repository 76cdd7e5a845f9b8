#pragma once

#include <device/bench.h>
#include <link/link_server.h>
#include <link/port_link.h>
#include <simulated/simulated_board.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace tqx::test {

/// A printer port on which the board can fall silent at any moment, in the middle of a byte too.
class SilencedPort : public ParallelPort {
public:
    explicit SilencedPort(std::unique_ptr<ParallelPort> port)
        : m_port(std::move(port)) {}

    /// Lets `looks` more looks at the lines through; from then on they are as on an idle bus. To be
    /// called between transfers.
    void FallSilentAfter(int looks) {
        m_idle = m_port->ReadStatus();
        m_looksLeft = looks;
    }

    std::uint16_t BaseAddress() override { return m_port->BaseAddress(); }

    void WriteData(std::uint8_t value) override { m_port->WriteData(value); }

    std::uint8_t ReadStatus() override { return m_looksLeft-- > 0 ? m_port->ReadStatus() : m_idle; }

    void Hold(bool hold) override { m_port->Hold(hold); }

    void Delay(std::chrono::nanoseconds time) override { m_port->Delay(time); }

private:
    std::unique_ptr<ParallelPort> m_port;
    std::uint8_t m_idle = 0;
    int m_looksLeft = std::numeric_limits<int>::max();
};

/// A bench with the chip of a simulated board chosen on its printer port, as the search leaves it.
/// Time stands still on the board, so that a measured value is the same at every look.
class SimulatedBench {
public:
    SimulatedBench() {
        Bench.Link->ActiveMedium(ActivePrinterPort);
        Bus().SlaveAddress(0x58);
        Bench.Bus.BusCell = {.SlaveAddress = 0x58,
                             .PortAddress = Port->BaseAddress(),
                             .ComsMedium = ComsPrinterPort};
    }

    BoardBus& Bus() { return Bench.Link->PrinterPortLink().BoardBus(); }

    sim::SimulatedBoard Board{{.Now = [] { return std::chrono::seconds{60}; }}};
    /// The board's port, which belongs to the link.
    SilencedPort* Port = nullptr;
    tqx::Bench Bench{[this](const LinkSetup& setup) {
        auto port = std::make_unique<SilencedPort>(Board.PrinterPort());
        Port = port.get();
        std::vector<std::unique_ptr<ParallelPort>> ports;
        ports.push_back(std::move(port));
        return std::make_unique<PartsLinkServer>(
            std::make_unique<PortLink>(std::move(ports), setup), Board.SMBus());
    }};
};

} // namespace tqx::test
