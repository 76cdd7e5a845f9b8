#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The folder of this program, where those that it starts stand too.
std::string Folder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

/// From the start of `program` to its end, which is its first paint, in seconds; negative when it
/// failed.
double TimeOf(const std::string& program) {
    std::string path = Folder() + "/" + program;
    char* const arguments[] = {path.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    const auto start = std::chrono::steady_clock::now();
    if (posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
        return -1;
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Start(benchmark::State& state, const char* program) {
    for ([[maybe_unused]] auto each : state) {
        const double seconds = TimeOf(program);
        if (seconds < 0) {
            state.SkipWithError("the program failed");
            break;
        }
        state.SetIterationTime(seconds);
    }
}

} // namespace

BENCHMARK_CAPTURE(Start, empty_qt_widgets_program, "startup_empty")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, two_lines_of_text, "startup_text")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, wizard_on_view, "startup_wizard")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
