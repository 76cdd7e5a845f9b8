#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace tqx::test {

/// A server that a test starts for itself: it says on a pipe where it can be reached, and goes with
/// this object, taking its files along, or with the test program if that dies.
class Daemon {
public:
    /// `arguments` begin with the program; "%1" in one of them is the number of the pipe. Comes
    /// back when the server has said its first line, or has ended.
    explicit Daemon(std::vector<std::string> arguments);
    ~Daemon();

    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;

    /// Where it can be reached; empty when it did not start.
    const std::string& Address() const { return m_address; }

private:
    pid_t m_process = -1;
    std::string m_address;
};

/// An X server without a screen, on a free number.
class XServer : public Daemon {
public:
    XServer();

    /// As DISPLAY has it.
    std::string Display() const { return ":" + Address(); }
};

/// A session bus with nothing on it.
class SessionBus : public Daemon {
public:
    SessionBus();
};

} // namespace tqx::test
