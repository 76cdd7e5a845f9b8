// What one transfer costs in software, from the call on the link down to the modelled chip: the
// bus is as fast as possible and bit delays are off.

#include <link/parallel_port.h>
#include <link/port_link.h>
#include <simulated/simulated_board.h>

#include <benchmark/benchmark.h>
#include <memory>
#include <utility>
#include <vector>

namespace tqx {
namespace {

constexpr std::uint8_t Address = 0x58;

/// Counts the data writes and status reads on their way to the board.
class CountingPort : public ParallelPort {
public:
    explicit CountingPort(std::unique_ptr<ParallelPort> port)
        : m_port(std::move(port)) {}

    std::uint16_t BaseAddress() override { return m_port->BaseAddress(); }

    void WriteData(std::uint8_t value) override {
        ++Writes;
        m_port->WriteData(value);
    }

    std::uint8_t ReadStatus() override {
        ++Reads;
        return m_port->ReadStatus();
    }

    void Hold(bool hold) override { m_port->Hold(hold); }

    void Delay(std::chrono::nanoseconds time) override { m_port->Delay(time); }

    std::int64_t Writes = 0;
    std::int64_t Reads = 0;

private:
    std::unique_ptr<ParallelPort> m_port;
};

struct Bed {
    Bed() {
        auto port = std::make_unique<CountingPort>(Board.PrinterPort());
        Port = port.get();
        std::vector<std::unique_ptr<ParallelPort>> ports;
        ports.push_back(std::move(port));
        Link = std::make_unique<PortLink>(std::move(ports), Setup);
        Link->BoardBus().SlaveAddress(Address);
        Link->BurstMode(true);
    }

    /// Runs one transfer over and over, with port accesses per transfer as counters.
    template <typename Transfer>
    void Measure(benchmark::State& state, const Transfer& transfer) {
        while (state.KeepRunning()) {
            transfer();
        }
        const auto transfers = static_cast<double>(state.iterations());
        state.counters["port_writes"] = static_cast<double>(Port->Writes) / transfers;
        state.counters["port_reads"] = static_cast<double>(Port->Reads) / transfers;
    }

    sim::SimulatedBoard Board;
    LinkSetup Setup;
    CountingPort* Port = nullptr;
    std::unique_ptr<PortLink> Link;
};

void ReadRegister(benchmark::State& state) {
    Bed bed;
    bed.Measure(state,
                [&] { benchmark::DoNotOptimize(bed.Link->BoardBus().ReadByte(Address, 0x16)); });
}

/// A measured value costs the plant on top of the bus.
void ReadMeasuredValue(benchmark::State& state) {
    Bed bed;
    bed.Measure(state,
                [&] { benchmark::DoNotOptimize(bed.Link->BoardBus().ReadByte(Address, 0x2E)); });
}

void ReadEEPROM(benchmark::State& state) {
    Bed bed;
    bed.Measure(state,
                [&] { benchmark::DoNotOptimize(bed.Link->EEPROMLink().ReadEEPROM(0x80, 0x00)); });
}

void ReadBlockWithPEC(benchmark::State& state) {
    Bed bed;
    BoardBus& bus = bed.Link->BoardBus();
    // From the EEPROM, so that no measured value is among the 32 bytes.
    bed.Link->EEPROMLink().ReadEEPROM(0x80, 0x00);
    bus.UsePEC(true);
    bed.Port->Writes = 0;
    bed.Port->Reads = 0;
    bed.Measure(state, [&] {
        std::uint8_t out = 0;
        bus.BlockRead(0xAA, 0x0A, out);
        benchmark::DoNotOptimize(out);
    });
    if (!bus.PECOK()) {
        state.SkipWithError("the PEC was wrong");
    }
}

void ReadRegisterOverSMBus(benchmark::State& state) {
    sim::SimulatedBoard board;
    const std::unique_ptr<SMBusLink> smbus = board.SMBus();
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(smbus->ReadByte(Address / 2, 0x16));
    }
}

BENCHMARK(ReadRegister)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadMeasuredValue)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadEEPROM)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadBlockWithPEC)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadRegisterOverSMBus)->Unit(benchmark::kMicrosecond);

/// The pace of a 100 kHz bus in real time: 39 bit times are 390 us.
void ReadRegisterAt100kHz(benchmark::State& state) {
    Bed bed;
    bed.Board.BusHertz(100000);
    bed.Measure(state,
                [&] { benchmark::DoNotOptimize(bed.Link->BoardBus().ReadByte(Address, 0x16)); });
}

BENCHMARK(ReadRegisterAt100kHz)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
} // namespace tqx

BENCHMARK_MAIN();
