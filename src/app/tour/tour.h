#pragma once

#include "tour_clock.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QDir>
#include <QString>
#include <QTest>
#include <QWidget>

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
class Tour {
public:
    /// Pictures go to `directory`, their names end in `suffix` ("@2x").
    Tour(QDir directory, QString suffix);

    /// Goes through every window. Raises TourFailure at the first step that fails.
    void Run();

    int Pictures() const { return m_pictures; }

private:
    void ShowWizard();
    void ShowWelcome();
    void ShowControlCentre();

    /// Saves a picture of `window` as it stands.
    void Shoot(QWidget& window, const QString& name);
    /// Serves events until `condition` holds, and fails after a few seconds.
    template <typename Condition>
    void WaitFor(const QString& what, Condition condition);
    void Expect(bool condition, const QString& what);
    void Click(QWidget& control, QPoint at = {});
    void Serve(int milliseconds);

    /// The control of that name in `window`; fails when there is none.
    template <typename Control = QWidget>
    Control& Find(QWidget& window, const QString& name) {
        auto* control = window.findChild<Control*>(name);
        Expect(control != nullptr, name + " is there");
        return *control;
    }

    MainForm& Main();

    QDir m_directory;
    QString m_suffix;
    int m_pictures = 0;
    TourClock m_clock;
    SimulatedBoard m_board;
    DesktopDialogs m_dialogs;
    ConsoleProgram m_program;
};

template <typename Condition>
void Tour::WaitFor(const QString& what, Condition condition) {
    Expect(QTest::qWaitFor(condition, 5000), what);
}

} // namespace tqx
