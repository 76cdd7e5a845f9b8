#include "command.h"

#include <array>
#include <csignal>
#include <iostream>
#include <thread>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t stopped = 0;

extern "C" void Stop(int /*signal*/) {
    stopped = 1;
}

/// Without a restart of system calls: a sleep ends with the signal.
void CatchEnd() {
    struct sigaction action {};

    action.sa_handler = Stop;
    for (const int signal : std::array{SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone and a file that may not grow
    std::signal(SIGXFSZ, SIG_IGN); // are errors that are told
}

} // namespace

int main(int argc, char** argv) {
    CatchEnd();
    std::ios::sync_with_stdio(false);
    using namespace std::chrono;
    tqx::cli::Surroundings around{
        .Out = std::cout,
        .Err = std::cerr,
        .Terminal = isatty(STDERR_FILENO) != 0,
        .Stopped = [] { return stopped != 0; },
        .Now = [] { return steady_clock::now().time_since_epoch(); },
        .Wall = [] { return system_clock::now(); },
        .Sleep =
            [](nanoseconds time) {
                // In pieces: a signal that comes just before a sleep does not end it.
                const auto end = steady_clock::now() + time;
                for (auto left = time; left > 0ns && stopped == 0;
                     left = end - steady_clock::now()) {
                    std::this_thread::sleep_for(std::min<nanoseconds>(left, 50ms));
                }
            },
    };
    return tqx::cli::Run({argv + 1, argv + argc}, around);
}
