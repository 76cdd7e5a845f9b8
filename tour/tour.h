#pragma once

#include "tour_clock.h"
#include "tour_dialogs.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QProgressBar>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <array>
#include <chrono>
#include <functional>
#include <stdexcept>

namespace tqx {

/// A step of the tour that did not do what it should.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& what)
        : std::runtime_error(what.toStdString()) {}
};

/// The guided tour: the whole program on the simulated board, driven with real input events, with a
/// stop at each view. Time stands still but where the tour steps it: every run is like the last.
///
/// A step that fails raises TourFailure.
class Tour {
public:
    /// What is done with a view at which the tour stops.
    using Stop = std::function<void(QWidget& window, const QString& name)>;

    /// Makes this process one of a user and a place that are always the same. To be called ahead of
    /// the application's making.
    static void FixSurroundings();

    explicit Tour(Stop stop);

    /// Goes through every window.
    void Run();

    /// The program under way, for the top of the application.
    ConsoleProgram& Program() { return m_program; }

private:
    // One scene per window; each leaves the program where the next begins.
    void ShowWizard();
    void ShowWelcome();
    void ShowControlCentre();
    void ShowRegisterConsole();
    void ShowBlockPanel();
    void ShowToolWindows();
    void ShowSimulatedBoard();

    void ShowNegativeRail();
    void ShowLimitHeld();
    void ShowChartTools();
    void ShowRefusedBlocks();
    void ShowRegisterAccess();
    void ShowEEPROMAccess(QWidget& access);
    void ShowGPIOPanel();
    void ShowErase();
    void ShowDump();

    /// Stops at `window` as it stands.
    void Show(QWidget& window, const QString& name);
    void Expect(bool condition, const QString& what);
    /// Serves events until `condition` holds, and fails after a few seconds.
    void WaitFor(const QString& what, const std::function<bool()>& condition);

    void Click(QWidget& control);
    void Press(const char* toolbarKey);
    /// Types `text` into an entry box, in place of what stands there, and Enter.
    static void Enter(QWidget& entry, const QString& text);
    void PickRow(int row);
    /// The monitor runs for a while of the board's time, so that the chart has something to show.
    void Watch(std::chrono::milliseconds time);

    /// Keeps a timer from ticking by itself: from now on it ticks where the tour lets it.
    void Hold(QWidget& window, const char* timer);
    /// One tick of a held timer, which must be running.
    void Tick(QWidget& window, const char* timer);

    /// Runs `scene` on the modal window of that name as soon as it stands, then closes it. To be
    /// called ahead of the step that opens it; the step comes back when the window is gone.
    void WithModal(const QString& windowName, std::function<void(QWidget& window)> scene);
    /// Checks that the scene handed to the last WithModal has run.
    void ExpectModalDone(const QString& what);

    /// Runs `scene` once, when `progress` comes to `value`. To be called ahead of the step that
    /// moves it.
    void Meanwhile(QProgressBar& progress, int value, std::function<void()> scene);
    /// Checks that the scene handed to the last Meanwhile has run.
    void ExpectMeanwhileDone(const QString& what);

    /// The control of that name in `window`; fails when there is none.
    template <typename Control = QWidget>
    static Control& Find(QWidget& window, const QString& name) {
        auto* control = window.findChild<Control*>(name);
        if (control == nullptr) {
            throw TourFailure("no control " + name);
        }
        return *control;
    }

    MainForm& Main();
    /// The open window of that name; fails when there is none.
    QWidget& Window(const QString& name);

    static constexpr std::array TimersOfMonitor{"BargraphTimer", "InterruptTimer", "GPIOTimer"};

    Stop m_stop;
    QTimer m_modalWatch;
    std::function<void(QWidget& window)> m_modalScene;
    bool m_modalDone = false;
    QMetaObject::Connection m_meanwhile;
    bool m_meanwhileDone = false;
    TourClock m_clock;
    sim::SimulatedBoard m_board;
    TourDialogs m_dialogs;
    ConsoleProgram m_program;
};

} // namespace tqx
