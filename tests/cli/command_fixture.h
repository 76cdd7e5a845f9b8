#pragma once

#include "command.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace tqx::test {

/// Runs the command in this process, on a board that a file keeps and in a time that passes only in
/// its sleeps.
class CommandFixture : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string out;
    std::string err;
    std::chrono::nanoseconds time{0};
    /// When the user asks for the end, in that time.
    std::chrono::nanoseconds stopAt = std::chrono::nanoseconds::max();

    std::string Path(const std::string& name) const { return folder.Path(name); }

    int Run(std::vector<std::string> arguments) {
        std::ostringstream data;
        std::ostringstream text;
        const std::chrono::system_clock::time_point noon =
            std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::hours(12);
        cli::Surroundings around{
            .Out = data,
            .Err = text,
            .Stopped = [&] { return time >= stopAt; },
            .Now = [&] { return time; },
            .Wall =
                [&] {
                    return noon +
                           std::chrono::duration_cast<std::chrono::system_clock::duration>(time);
                },
            .Sleep = [&](std::chrono::nanoseconds length) { time += length; }};
        const int status = cli::Run(arguments, around);
        out = data.str();
        err = text.str();
        return status;
    }

    /// On the board in the file "board".
    int OnBoard(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "--simulated=" + Path("board"));
        return Run(std::move(arguments));
    }
};

} // namespace tqx::test
