#pragma once

#include "tour_clock.h"
#include "tour_dialogs.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QDir>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <stdexcept>

namespace tqx {

/// A step of the tour that did not do what it should.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString& what)
        : std::runtime_error(what.toStdString()) {}
};

/// The guided tour: the whole program on the simulated board, driven with real input events, and a
/// picture of each view.
///
/// A step that fails raises TourFailure.
class Tour {
public:
    /// Pictures go to `directory`, their names end in `suffix` ("@2x").
    Tour(const QDir& directory, QString suffix);

    /// Goes through every window.
    void Run();

    /// The program under way, for the top of the application.
    ConsoleProgram& Program() { return m_program; }

    int Pictures() const { return m_pictures; }

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

    /// Saves a picture of `window` as it stands.
    void Shoot(QWidget& window, const QString& name);
    void Expect(bool condition, const QString& what);
    /// Serves events until `condition` holds, and fails after a few seconds.
    void WaitFor(const QString& what, const std::function<bool()>& condition);
    /// Serves events for that long.
    void Serve(int milliseconds);

    void Click(QWidget& control);
    void Press(const char* toolbarKey);
    /// Types `text` into an entry box, in place of what stands there, and Enter.
    static void Enter(QWidget& entry, const QString& text);
    void PickRow(int row);
    /// The monitor runs for a while, so that the chart has something to show.
    void Watch(int milliseconds);

    /// Runs `scene` on the modal window of that name as soon as it stands, then closes it. To be
    /// called ahead of the step that opens it; the step comes back when the window is gone.
    void WithModal(const QString& windowName, std::function<void(QWidget& window)> scene);
    /// Checks that the scene handed to the last WithModal has run.
    void ExpectModalDone(const QString& what);

    /// Runs `scene` once as soon as `condition` holds, in a step that serves events for long. To be
    /// called ahead of that step.
    void Meanwhile(std::function<bool()> condition, std::function<void()> scene);
    /// Checks that the scene handed to the last Meanwhile has run.
    void ExpectMeanwhileDone(const QString& what);

    /// The control of that name in `window`; fails when there is none.
    template <typename Control = QWidget>
    Control& Find(QWidget& window, const QString& name) {
        auto* control = window.findChild<Control*>(name);
        if (control == nullptr) {
            throw TourFailure("no control " + name);
        }
        return *control;
    }

    MainForm& Main();
    /// The open window of that name; fails when there is none.
    QWidget& Window(const QString& name);

    QDir m_directory;
    QString m_suffix;
    int m_pictures = 0;
    QTimer m_modalWatch;
    std::function<void(QWidget& window)> m_modalScene;
    bool m_modalDone = false;
    QTimer m_meanwhileWatch;
    bool m_meanwhileDone = false;
    TourClock m_clock;
    SimulatedBoard m_board;
    TourDialogs m_dialogs;
    ConsoleProgram m_program;
};

} // namespace tqx
