// A day's recording by `tqx7716 watch` in simulated time: 26 channels of the simulated board, a row
// a second of ten readings each. Prints its rows, the size of its file and the memory that it took.

#include "command.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <sys/resource.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: soak_recording FILE.csv\n", stderr);
        return 2;
    }
    using namespace std::chrono;
    nanoseconds time{0};
    std::ostringstream out;
    tqx::cli::Surroundings around{.Out = out,
                                  .Err = std::cerr,
                                  .Stopped = [] { return false; },
                                  .Now = [&] { return time; },
                                  .Wall =
                                      [&] {
                                          return sys_days{year{2026} / 3 / 1} +
                                                 duration_cast<system_clock::duration>(time);
                                      },
                                  .Sleep = [&](nanoseconds length) { time += length; }};
    const auto kilobytes = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    const auto run = [&](const char* length) {
        return tqx::cli::Run({"--simulated", "--smbus", "watch", "--csv", argv[1], "--for", length},
                             around);
    };
    const auto begin = steady_clock::now();
    if (run("10m") != 0) {
        return 1;
    }
    const long after10Minutes = kilobytes();
    if (run("1430m") != 0) {
        return 1;
    }
    const duration<double> took = steady_clock::now() - begin;
    std::printf("%ju bytes, %ld KiB after 10 minutes, %ld KiB after a day, in %.0f s\n",
                std::uintmax_t{std::filesystem::file_size(argv[1])}, after10Minutes, kilobytes(),
                took.count());
}
