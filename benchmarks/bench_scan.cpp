#include <link/link_root.h>
#include <search/media_scan.h>
#include <simulated/simulated_board.h>

#include <benchmark/benchmark.h>

namespace tqx {
namespace {

/// A whole search on both media of the simulated board, as fast as the machine goes.
void Scan(benchmark::State& state) {
    sim::SimulatedBoard board;
    LinkRoot link(board.Factory());
    for ([[maybe_unused]] auto each : state) {
        MediaScan scan(link);
        scan.SearchAllMedia({.PrinterPort = true, .SMBus = true},
                            {.Max = [](int) {}, .Step = [](int) {}});
        if (scan.PrinterPortFinds().size() != 1 || scan.SMBusFinds().size() != 1) {
            state.SkipWithError("the chip was not found once on each medium");
            break;
        }
    }
}

BENCHMARK(Scan)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tqx
