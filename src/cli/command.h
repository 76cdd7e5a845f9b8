#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tqx::cli {

/// Exit statuses of the command.
enum Status : int {
    Done = 0,
    AnswerIsNo = 1, ///< done, but the answer is no: no chip, a difference, an alarm, not kept
    WrongUse = 2,   ///< or a file that cannot be used
    LinkFailed = 3,
};

/// What ends a command early, with its status and what the user is told.
class Refusal : public std::runtime_error {
public:
    Refusal(Status status, const std::string& text)
        : std::runtime_error(text)
        , Code(status) {}

    Status Code;
};

/// All that the command has of the system but for its files and the chip: a test brings its own.
struct Surroundings {
    /// Data, and text for people.
    /// @{
    std::ostream& Out;
    std::ostream& Err;
    /// @}
    /// Err is a terminal, on which a progress bar can be drawn.
    bool Terminal = false;
    /// The user has asked for the end.
    std::function<bool()> Stopped;
    /// A clock that nobody sets.
    std::function<std::chrono::nanoseconds()> Now;
    std::function<std::chrono::system_clock::time_point()> Wall;
    /// May end early when the end is asked for.
    std::function<void(std::chrono::nanoseconds)> Sleep;
};

/// Runs the command with these arguments, without the program's name. Its exit status.
int Run(const std::vector<std::string>& arguments, Surroundings& around);

} // namespace tqx::cli
