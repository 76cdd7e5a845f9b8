#include "board_fixture.h"
#include "bus/bus_pacer.h"
#include "bus/chip_slave.h"
#include "faults/faulty_media.h"
#include "simulated_port.h"
#include "simulated_smbus.h"

#include <link/port_link.h>

namespace tqx::sim {
namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

/// A pacer on a clock of its own, which oversleeps as operating systems do.
class BusPacerTest : public BoardTest {
protected:
    /// A link to a port that this test's pacer paces.
    PortLink PacedLink() {
        std::vector<std::unique_ptr<ParallelPort>> ports;
        ports.push_back(std::make_unique<SimulatedPort>(Slave, DirectWiring, Pacer));
        return {std::move(ports), Setup};
    }

    LinkSetup Setup;
    Chip Model;
    ChipSlave Slave{Model, Address};
    Faults Trouble;
    nanoseconds Clock{0};
    BusPacer Pacer{[this] { return Clock; }, [this](nanoseconds time) { Clock += time + 70us; }};
};

TEST_F(BusPacerTest, RegisterReadTakes39BitTimesOnAverageOnBothMedia) {
    Pacer.Hertz(100000);
    PortLink port = PacedLink();
    SimulatedSMBus smbus(Slave, Pacer);
    const auto averageOf = [this](const auto& read) {
        const nanoseconds begin = Clock;
        for (int i = 0; i < 1000; ++i) {
            read();
        }
        return static_cast<double>((Clock - begin).count()) / 1000;
    };
    for (const std::uint8_t bitDelay : {0, 100}) {
        Setup.BitDelayCount = bitDelay;
        EXPECT_NEAR(averageOf([&] { port.BoardBus().ReadByte(Address, 0x16); }), 390e3, 2e3);
    }
    EXPECT_NEAR(averageOf([&] { smbus.ReadByte(Address / 2, 0x16); }), 390e3, 2e3);
}

TEST_F(BusPacerTest, SlowBusHoldsEachAccessAtAnyRate) {
    Trouble.Always(Fault::SlowBus);
    FaultyPort port(std::make_unique<SimulatedPort>(Slave, DirectWiring, Pacer), DirectWiring,
                    Trouble, Pacer);
    for (int i = 0; i < 100; ++i) {
        port.WriteData(LineControlBits | DirectWiring.BothHigh);
    }
    EXPECT_NEAR(static_cast<double>(Clock.count()), 10e6, 1e6);
}

} // namespace
} // namespace tqx::sim
