#include "daemon.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tqx::test {
namespace {

std::string FirstLine(int file) {
    std::string line;
    char character = 0;
    while (read(file, &character, 1) == 1 && character != '\n') {
        line += character;
    }
    return line;
}

} // namespace

Daemon::Daemon(std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    std::vector<char*> words;
    for (std::string& argument : arguments) {
        if (const auto at = argument.find("%1"); at != std::string::npos) {
            argument.replace(at, 2, std::to_string(ends[1]));
            fcntl(ends[1], F_SETFD, 0);
        }
        words.push_back(argument.data());
    }
    words.push_back(nullptr);
    m_process = fork();
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int silence = open("/dev/null", O_WRONLY);
        dup2(silence, STDOUT_FILENO);
        dup2(silence, STDERR_FILENO);
        execv(words.front(), words.data());
        _exit(127);
    }
    close(ends[1]);
    m_address = FirstLine(ends[0]);
    close(ends[0]);
}

Daemon::~Daemon() {
    if (m_process > 0) {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
}

XServer::XServer()
    : Daemon({TQX_XVFB, "-displayfd", "%1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"}) {}

SessionBus::SessionBus()
    : Daemon({TQX_DBUS_DAEMON, "--session", "--nofork", "--print-address=%1"}) {}

} // namespace tqx::test
