#include "kernel/kernel_bench.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <grp.h>
#include <linux/ppdev.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tqx::test {

namespace {

bool Become(const Person& person) {
    return setgroups(person.Groups.size(), person.Groups.data()) == 0 &&
           setgid(person.Groups.front()) == 0 && setuid(person.User) == 0;
}

void Send(int pipe, const std::string& text) {
    if (write(pipe, text.data(), text.size()) < 0) {
        _exit(1);
    }
}

/// Reads until every writer has gone.
std::string Receive(int pipe) {
    std::string text;
    char part[256];
    for (ssize_t count = 0; (count = read(pipe, part, sizeof part)) > 0;) {
        text.append(part, static_cast<std::size_t>(count));
    }
    close(pipe);
    return text;
}

} // namespace

std::string FailureOf(const std::function<void()>& work) {
    try {
        work();
        return "";
    } catch (const LinkError& error) {
        return std::string(error.what()) + " " + error.Advice();
    }
}

std::string FailureAs(const Person& person, const std::function<void(KernelBench&)>& work) {
    int pipe[2];
    if (::pipe(pipe) != 0) {
        return "no pipe";
    }
    const int child = fork();
    if (child == 0) {
        const auto asPerson = [&work] {
            KernelBench bench;
            work(bench);
        };
        Send(pipe[1], Become(person) ? FailureOf(asPerson) : "cannot become another user");
        _exit(0);
    }
    close(pipe[1]);
    std::string text = Receive(pipe[0]);
    waitpid(child, nullptr, 0);
    return text;
}

OtherHolder::OtherHolder(const std::string& node) {
    int pipe[2];
    if (::pipe(pipe) != 0) {
        throw std::runtime_error("no pipe");
    }
    m_process = fork();
    if (m_process == 0) {
        const int port = open(node.c_str(), O_RDWR);
        Send(pipe[1], ioctl(port, PPCLAIM) == 0 ? "claimed" : "");
        close(pipe[1]);
        pause();
        _exit(0);
    }
    close(pipe[1]);
    if (Receive(pipe[0]) != "claimed") {
        throw std::runtime_error("the other program cannot claim " + node);
    }
}

OtherHolder::~OtherHolder() {
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream file(path);
    file << text << std::flush;
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace tqx::test
