#pragma once

#include <link/link_error.h>
#include <link/link_root.h>
#include <linuxboard/linux_board.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tqx::test {

/// The board on the kernel that runs the test, with the program's bit delay.
struct KernelBench {
    LinuxBoard Board;
    LinkSetup Setup{.Notice = {}, .BitDelayCount = 100};
    std::unique_ptr<LinkServer> Link = Board.Factory()(Setup);
    SMBusLink& SMBus = Link->SMBusLink();
    PrinterPortLink& Ports = Link->PrinterPortLink();

    std::string Build() { return Board.OSVersionInfoFactory()()->BuildNumber(); }
};

/// Someone other than root, for the time of a call.
struct Person {
    unsigned User;
    std::vector<unsigned> Groups;
};

/// What a user reads of `work`: the error and its advice, or nothing when all goes well.
std::string FailureOf(const std::function<void()>& work);

/// What the person reads of `work`, which runs in a process of its own.
std::string FailureAs(const Person& person, const std::function<void(KernelBench&)>& work);

/// A program that keeps a printer port claimed for as long as this lives.
class OtherHolder {
public:
    explicit OtherHolder(const std::string& node);
    ~OtherHolder();

    OtherHolder(const OtherHolder&) = delete;
    OtherHolder& operator=(const OtherHolder&) = delete;

private:
    int m_process;
};

void WriteFile(const std::string& path, const std::string& text);
std::string ReadFile(const std::string& path);

} // namespace tqx::test
