// The console on a printer port of a made-up kernel, behind which is the simulated board. It goes
// to work by itself, and keeps a file that says how the port stands: lost_display_program FILE
// Monitor|Transfer

#include "port_state.h"
#include "support/fake_kernel.h"

#include <app/console_program.h>
#include <linuxboard/linux_board.h>
#include <simulated/simulated_board.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include <array>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace tqx {
namespace {

constexpr int ClaimsOfAMonitor = 20; // by then it has ticked

/// A kernel with one printer port, and a board at it.
class WatchedKernel : public test::FakeKernel {
public:
    explicit WatchedKernel(std::string path)
        : m_path(std::move(path)) {
        AddPort(0, "888\t0");
        Save();
    }

    KernelAnswer PortClaim(int file) override {
        ++Claims;
        return Saved(FakeKernel::PortClaim(file));
    }

    KernelAnswer PortRelease(int file) override { return Saved(FakeKernel::PortRelease(file)); }

    KernelAnswer PortWriteData(int file, std::uint8_t value) override {
        m_board->WriteData(value);
        return Saved(FakeKernel::PortWriteData(file, value));
    }

    KernelAnswer PortReadStatus(int file) override {
        Status = m_board->ReadStatus();
        return FakeKernel::PortReadStatus(file);
    }

    void AtWork() {
        m_atWork = true;
        Save();
    }

    sim::SimulatedBoard Board;
    int Claims = 0;

private:
    KernelAnswer Saved(KernelAnswer answer) {
        TakeCalls(); // or they would fill the memory
        Save();
        return answer;
    }

    void Save() { test::PortState{m_atWork, Claimed, Data}.SaveAs(m_path); }

    std::unique_ptr<ParallelPort> m_board = Board.PrinterPort();
    std::string m_path;
    bool m_atWork = false;
};

/// The user: starts the monitor on the chip that was found, or a block transfer without a board,
/// which stops half-way at a notice.
class Hand : public QObject {
public:
    Hand(WatchedKernel& kernel, bool monitor)
        : m_kernel(kernel)
        , m_monitor(monitor) {
        m_kernel.Board.Plugged(monitor);
        startTimer(1);
    }

protected:
    void timerEvent(QTimerEvent*) override {
        if (m_monitor ? m_kernel.Claims >= ClaimsOfAMonitor
                      : QApplication::activeModalWidget() != nullptr) {
            m_kernel.AtWork();
            return;
        }
        static constexpr std::array monitor{"NextCMD", "NextCMD", "FinishCMD", "ControlPanel1"};
        static constexpr std::array transfer{"SkipCMD", "BlockReadWrite", "BlockReadCMD"};
        const std::span<const char* const> steps =
            m_monitor ? std::span<const char* const>(monitor) : transfer;
        if (m_step < steps.size() && Click(steps[m_step])) {
            ++m_step;
        }
    }

private:
    /// The click comes by itself, so that this timer goes on where it opens a window.
    bool Click(const char* name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* button = window->findChild<QAbstractButton*>(name);
            if (window->isVisible() && button != nullptr && button->isVisible()) {
                QTimer::singleShot(0, button, &QAbstractButton::click);
                return true;
            }
        }
        return false;
    }

    WatchedKernel& m_kernel;
    bool m_monitor;
    std::size_t m_step = 0;
};

} // namespace
} // namespace tqx

int main(int argc, char** argv) {
    auto kernel = std::make_unique<tqx::WatchedKernel>(argv[1]);
    const bool monitor = argv[2] == std::string("Monitor");
    std::unique_ptr<tqx::Hand> hand;
    const auto comeToWork = [&, &watched = *kernel] {
        hand = std::make_unique<tqx::Hand>(watched, monitor);
        return std::unique_ptr<QWidget>();
    };
    tqx::LinuxBoard board(std::move(kernel));
    return tqx::RunConsole(
        argc, argv, "org.tqx7716.Console",
        {board.Factory(), board.OSVersionInfoFactory(), "Made-up kernel", comeToWork});
}
