// What one register transfer asks of the kernel: every system call is counted on a fake kernel, so
// the figures are the same on every machine. Bit delays are off.
//
//   system_calls   all calls of a transfer, port accesses included
//   port_writes    line states put out; the least that the states of the line layer allow
//   port_reads     looks at the data line: one per acknowledge, one per bit taken in

#include "support/fake_kernel.h"

#include <link/link_root.h>
#include <linuxboard/linux_board.h>

#include <benchmark/benchmark.h>
#include <memory>
#include <utility>

namespace tqx {
namespace {

/// A kernel that counts what goes to the port, and everything.
class CountingKernel : public test::FakeKernel {
public:
    CountingKernel() {
        AddPort(0, "888\t0\n");
        AddAdapter(0, "SMBus I801 adapter at f000");
        AddChip(0, 0x2C);
    }

    KernelAnswer PortWriteData(int file, std::uint8_t value) override {
        ++Writes;
        return FakeKernel::PortWriteData(file, value);
    }

    KernelAnswer PortReadStatus(int file) override {
        ++Reads;
        return FakeKernel::PortReadStatus(file);
    }

    /// The files in which the kernel tells who holds the port; the fake leaves them out.
    KernelAnswer OpenText(const std::string& path) override {
        CallCount += 2; // and its close
        return FakeKernel::OpenText(path);
    }

    KernelAnswer Read(int file, std::span<char> buffer) override {
        ++CallCount;
        return FakeKernel::Read(file, buffer);
    }

    long Writes = 0;
    long Reads = 0;
};

struct Bed {
    CountingKernel* Kernel = new CountingKernel;
    LinuxBoard Board{std::unique_ptr<KernelFace>(Kernel)};
    LinkSetup Setup;
    std::unique_ptr<LinkServer> Link = Board.Factory()(Setup);

    template <typename Transfer>
    void Measure(benchmark::State& state, const Transfer& transfer) {
        transfer(); // opens the node
        Kernel->CallCount = Kernel->Writes = Kernel->Reads = 0;
        while (state.KeepRunning()) {
            transfer();
            Kernel->TakeCalls();
        }
        const auto transfers = static_cast<double>(state.iterations());
        state.counters["system_calls"] = static_cast<double>(Kernel->CallCount) / transfers;
        state.counters["port_writes"] = static_cast<double>(Kernel->Writes) / transfers;
        state.counters["port_reads"] = static_cast<double>(Kernel->Reads) / transfers;
    }
};

void LinesRead(benchmark::State& state) {
    Bed bed;
    bed.Measure(state, [&] { bed.Link->PrinterPortLink().BoardBus().ReadByte(0x58, 0x16); });
}

void LinesReadInBurst(benchmark::State& state) {
    Bed bed;
    bed.Link->PrinterPortLink().BurstMode(true);
    bed.Measure(state, [&] { bed.Link->PrinterPortLink().BoardBus().ReadByte(0x58, 0x16); });
}

void LinesWriteInBurst(benchmark::State& state) {
    Bed bed;
    bed.Link->PrinterPortLink().BurstMode(true);
    bed.Measure(state, [&] { bed.Link->PrinterPortLink().BoardBus().WriteByte(0x58, 0x20, 0x55); });
}

void SMBusRead(benchmark::State& state) {
    Bed bed;
    bed.Link->SMBusLink().ReadByte(0x2C, 0x16);
    bed.Measure(state, [&] { bed.Link->SMBusLink().ReadByte(0x2C, 0x20); });
}

void SMBusWrite(benchmark::State& state) {
    Bed bed;
    bed.Link->SMBusLink().ReadByte(0x2C, 0x16);
    bed.Measure(state, [&] { bed.Link->SMBusLink().WriteByte(0x2C, 0x20, 0x55); });
}

BENCHMARK(LinesRead);
BENCHMARK(LinesReadInBurst);
BENCHMARK(LinesWriteInBurst);
BENCHMARK(SMBusRead);
BENCHMARK(SMBusWrite);

} // namespace
} // namespace tqx

BENCHMARK_MAIN();
