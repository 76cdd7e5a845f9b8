// The program itself: the examples of the handbook, and its ends by signals.

#include "support/temporary_folder.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tqx {
namespace {

using testing::HasSubstr;

const std::string ProgramFolder = TQX_PROGRAM_FOLDER;

/// True once a process has a handler for SIGINT.
bool CatchesSignals(pid_t process) {
    std::istringstream status(test::ContentOf("/proc/" + std::to_string(process) + "/status"));
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigCgt:")) {
            return (std::stoull(line.substr(7), nullptr, 16) >> (SIGINT - 1) & 1) != 0;
        }
    }
    return true; // it has gone
}

class ProgramTest : public testing::Test {
protected:
    test::TemporaryFolder folder;

    /// The two outputs of a line of a shell together, in the test's folder.
    std::string Shell(const std::string& line) {
        const std::string command = "cd " + folder.Path("") + " && export PATH=" + ProgramFolder +
                                    ":$PATH && { " + line + "\n} 2>&1";
        std::FILE* const pipe = popen(command.c_str(), "r");
        std::string text;
        for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
            text += static_cast<char>(c);
        }
        pclose(pipe);
        return text;
    }

    /// Runs the program, sends it a signal after a while, and gives how it ended, as of wait.
    int EndBySignal(std::vector<std::string> arguments, int signal,
                    std::chrono::milliseconds after) {
        arguments.insert(arguments.begin(), "tqx7716");
        std::vector<char*> words;
        std::ranges::transform(arguments, std::back_inserter(words),
                               [](std::string& word) { return word.data(); });
        words.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            const int text = open(folder.Path("text").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            dup2(text, STDERR_FILENO);
            execv((ProgramFolder + "/tqx7716").c_str(), words.data());
            _exit(127);
        }
        while (!CatchesSignals(child)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::this_thread::sleep_for(after);
        kill(child, signal);
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }
};

/// True when `line` is what `pattern` says, in which "..." stands for anything.
bool Matches(const std::string& line, const std::string& pattern) {
    const std::size_t dots = pattern.find("...");
    if (dots == std::string::npos) {
        return line == pattern;
    }
    const std::string end = pattern.substr(dots + 3);
    return line.size() + 3 >= pattern.size() && line.starts_with(pattern.substr(0, dots)) &&
           line.ends_with(end);
}

/// Each line behind a "$" is run, and the lines behind it are what it has to say.
TEST_F(ProgramTest, TheExamplesOfTheHandbookDoWhatItShows) {
    std::istringstream page(
        test::ContentOf(std::string(TQX_SOURCE_DIR) + "/docs/handbook/from-scripts.md"));
    std::istringstream said;
    bool inside = false;
    int examples = 0;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("```")) {
            examples += line == "```console" ? 1 : 0;
            inside = line == "```console";
        } else if (inside && line.starts_with("$ ")) {
            std::string rest;
            EXPECT_FALSE(std::getline(said, rest)) << "more was said: " << rest;
            said = std::istringstream(Shell(line.substr(2)));
        } else if (inside) {
            std::string is;
            std::getline(said, is);
            EXPECT_TRUE(Matches(is, line)) << "the page: " << line << "\nthe program: " << is;
        }
    }
    EXPECT_GE(examples, 10);
}

TEST_F(ProgramTest, NoQtIsLoaded) {
    const std::string libraries = Shell("ldd " + ProgramFolder + "/tqx7716");
    EXPECT_THAT(libraries, HasSubstr("libstdc++"));
    EXPECT_THAT(libraries, testing::Not(HasSubstr("Qt")));
}

TEST_F(ProgramTest, AFullDiskAndAReaderThatHasGoneAreTold) {
    EXPECT_THAT(Shell("tqx7716 --simulated channels > /dev/full; echo $?"),
                HasSubstr("cannot write the data"));
    EXPECT_THAT(Shell("tqx7716 --simulated watch --every 10ms | head -n 1"),
                HasSubstr("whoever read them has gone"));
    EXPECT_THAT(Shell("ulimit -f 2; tqx7716 --simulated dump d.txt; echo $?"),
                HasSubstr("cannot write d.txt: File too large\n2\n"));
    EXPECT_THAT(Shell("ulimit -f 2; tqx7716 --simulated watch --every tick --csv r.csv; echo $?"),
                HasSubstr("cannot record to r.csv: File too large"));
    EXPECT_EQ(test::ContentOf(folder.Path("r.csv")).back(), '\n');
}

TEST_F(ProgramTest, AStopOfAnEEPROMWriteEndsOnAPageAndASecondWriteCompletesIt) {
    Shell("head -c 8192 /dev/urandom > image.bin");
    const std::string board = "--simulated=" + folder.Path("board");
    for (int place = 1; place <= 10; ++place) {
        Shell("tqx7716 " + board + " eeprom erase");
        const int status = EndBySignal(
            {board, "--bus-hertz", "1000000", "eeprom", "write", folder.Path("image.bin")}, SIGINT,
            std::chrono::milliseconds(50 * place));
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == 1) {
            EXPECT_THAT(test::ContentOf(folder.Path("text")),
                        HasSubstr("Stopped: the pages before"));
        }
        EXPECT_EQ(Shell("tqx7716 " + board + " eeprom write image.bin >/dev/null 2>&1; echo $?"),
                  "0\n");
        EXPECT_EQ(
            Shell("tqx7716 " + board + " eeprom read now.bin 2>/dev/null; cmp now.bin image.bin"),
            "");
    }
}

TEST_F(ProgramTest, ARecordingThatIsKilledAtAnyMomentIsWholeAndGoesOn) {
    std::mt19937 random(3);
    const std::string file = folder.Path("soak.csv");
    std::size_t before = 0;
    for (int run = 0; run < 20; ++run) {
        EndBySignal({"--simulated", "watch", "--every", "tick", "--csv", file}, SIGKILL,
                    std::chrono::milliseconds(100 + random() % 150));
        const std::string content = test::ContentOf(file);
        ASSERT_GT(content.size(), before) << "run " << run;
        before = content.size();
        const long columns =
            std::count(content.begin(), std::find(content.begin(), content.end(), '\n'), ',');
        std::istringstream lines(content);
        for (std::string line; std::getline(lines, line);) {
            ASSERT_EQ(std::ranges::count(line, ','), columns) << line;
        }
        EXPECT_EQ(content.back(), '\n');
        EXPECT_EQ(content.find("Time", 1), std::string::npos);
    }
}

} // namespace
} // namespace tqx
