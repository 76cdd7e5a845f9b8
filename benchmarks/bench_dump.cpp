// A full dump, 8448 byte reads, through its window on the modelled board, beside the same reads
// without the dump: the difference is what the program takes beyond the link. The argument is the
// clock rate of the bus in hertz; 0 is a bus that costs nothing but the model, which hides nothing.

#include "register_dump/register_dump_frm.h"

#include <controls/percent_bar.h>
#include <controls/system_dialogs.h>
#include <device/bench.h>
#include <device/eeprom_map.h>
#include <simulated/simulated_board.h>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>

namespace tqx {
namespace {

constexpr std::uint8_t Address = 0x58;
constexpr int BytesOfADump = 256 + eeprom::BlockCount * eeprom::BlockSize;

/// A bench with the modelled board at hand.
struct BoardBench {
    explicit BoardBench(double hertz) {
        Board.BusHertz(hertz);
        Bench.Bus.BusCell = {
            .SlaveAddress = Address, .PortAddress = 0x378, .ComsMedium = ComsPrinterPort};
        Bench.Link->ActiveMedium(ActivePrinterPort);
        Bench.Link->PrinterPortLink().BoardBus().SlaveAddress(Address);
    }

    sim::SimulatedBoard Board;
    tqx::Bench Bench{Board.Factory()};
};

struct PaintCounter : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int Count = 0;
};

void ReadsAlone(benchmark::State& state) {
    BoardBench bed(static_cast<double>(state.range(0)));
    PrinterPortLink& port = bed.Bench.Link->PrinterPortLink();
    for ([[maybe_unused]] auto run : state) {
        port.BurstMode(true);
        for (int reg = 0; reg < 256; ++reg) {
            port.BoardBus().ReadByte(Address, static_cast<std::uint8_t>(reg));
        }
        for (int at = 0; at < eeprom::BlockCount * eeprom::BlockSize; ++at) {
            port.EEPROMLink().ReadEEPROM(static_cast<std::uint8_t>(0x80 + at / 256),
                                         static_cast<std::uint8_t>(at % 256));
        }
        port.BurstMode(false);
    }
    state.counters["bytes"] = BytesOfADump;
}

void WholeDump(benchmark::State& state) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    BoardBench bed(static_cast<double>(state.range(0)));
    DesktopDialogs dialogs;
    RegisterDumpFRM window(
        bed.Bench, [](auto&&...) { return std::uint8_t{1}; }, dialogs);
    window.show();
    QCoreApplication::processEvents();
    PaintCounter paints;
    window.findChild<PercentBar*>("ProgressBar1")->installEventFilter(&paints);
    auto* dump = window.findChild<QAbstractButton*>("DumpCMD");
    for ([[maybe_unused]] auto run : state) {
        dump->click();
    }
    state.counters["bytes"] = BytesOfADump;
    state.counters["repaints"] =
        benchmark::Counter(paints.Count, benchmark::Counter::kAvgIterations);
}

constexpr std::int64_t FreeBus = 0;
constexpr std::int64_t StandardBus = 100'000;

BENCHMARK(ReadsAlone)->Arg(FreeBus)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WholeDump)->Arg(FreeBus)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadsAlone)
    ->Arg(StandardBus)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(WholeDump)->Arg(StandardBus)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace tqx
