#include "tour.h"

#include <console/main_form.h>
#include <controls/strip_chart.h>
#include <simulator/board_window.h>

#include <QApplication>
#include <QCheckBox>
#include <QStyleHints>

#include <cmath>
#include <utility>

namespace tqx {
namespace {

constexpr int Patience = 5000;         // ms
constexpr int ModalWatchInterval = 10; // ms

/// Between two ticks of the monitor, on the board's clock.
constexpr std::chrono::milliseconds TickStep{250};

} // namespace

void Tour::FixSurroundings() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("HOME", "/home/engineer"); // in the folder that the dump window shows
    qputenv("TZ", "UTC");              // along the time axis of the chart
    for (const char* variable : {"XDG_CONFIG_HOME", "LC_ALL", "LANG", "LANGUAGE"}) {
        qunsetenv(variable);
    }
}

Tour::Tour(Stop stop)
    : m_stop(std::move(stop))
    , m_board({.Seed = 7716, .Now = [this] { return m_clock.Now(); }})
    , m_program({m_board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), "Simulated board",
                 [this] { return std::make_unique<BoardWindow>(m_board); },
                 [this](float seconds) {
                     m_clock.Step(std::chrono::nanoseconds(std::lround(seconds * 1e9F)));
                     QCoreApplication::processEvents();
                 }},
                m_dialogs) {
    QGuiApplication::styleHints()->setCursorFlashTime(0);
}

void Tour::Run() {
    ShowWizard();
    ShowWelcome();
    ShowControlCentre();
    ShowRegisterConsole();
    ShowBlockPanel();
    ShowToolWindows();
    ShowSimulatedBoard();
    Main().close();
}

void Tour::Show(QWidget& window, const QString& name) {
    QApplication::processEvents();
    m_stop(window, name);
}

void Tour::Expect(bool condition, const QString& what) {
    if (!condition) {
        throw TourFailure("not so: " + what);
    }
}

void Tour::WaitFor(const QString& what, const std::function<bool()>& condition) {
    Expect(QTest::qWaitFor(condition, Patience), what);
}

void Tour::Click(QWidget& control) {
    Expect(control.isVisible() && control.isEnabled(), control.objectName() + " can be clicked");
    // A box's mark stands at its left end; behind its text it takes no click.
    const bool box = qobject_cast<QCheckBox*>(&control) != nullptr;
    const QPoint at = box ? QPoint(control.height() / 2, control.height() / 2) : QPoint();
    QTest::mouseMove(&control, at);
    QTest::mouseClick(&control, Qt::LeftButton, {}, at);
}

void Tour::Press(const char* toolbarKey) {
    Click(Find(Find(Main(), "Toolbar1"), toolbarKey));
}

void Tour::Enter(QWidget& entry, const QString& text) {
    entry.setFocus();
    QTest::keySequence(&entry, QKeySequence::SelectAll);
    QTest::keyClicks(&entry, text);
    QTest::keyClick(&entry, Qt::Key_Return);
}

void Tour::PickRow(int row) {
    Click(Find(Main(), QStringLiteral("visualdisplaytext(%1)").arg(row)));
}

void Tour::Watch(std::chrono::milliseconds time) {
    for (const auto end = m_clock.Now() + time; m_clock.Now() < end;) {
        m_clock.Step(TickStep);
        for (const char* timer : TimersOfMonitor) {
            Tick(Main(), timer);
        }
    }
    Find<StripChart>(Main(), "MainStripChart").DrawFrame(); // which else waits for the wall's time
}

void Tour::Hold(QWidget& window, const char* timer) {
    Find<QTimer>(window, timer).blockSignals(true);
}

void Tour::Tick(QWidget& window, const char* timer) {
    auto& held = Find<QTimer>(window, timer);
    Expect(held.isActive(), QStringLiteral("%1 runs").arg(timer));
    held.blockSignals(false);
    QMetaObject::invokeMethod(&held, "timeout");
    held.blockSignals(true);
}

void Tour::WithModal(const QString& windowName, std::function<void(QWidget& window)> scene) {
    m_modalDone = false;
    m_modalScene = std::move(scene);
    m_modalWatch.disconnect();
    QObject::connect(&m_modalWatch, &QTimer::timeout, &m_modalWatch, [this, windowName] {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr || window->objectName() != windowName) {
            return;
        }
        m_modalWatch.stop();
        m_modalScene(*window);
        window->close();
        m_modalDone = true;
    });
    m_modalWatch.start(ModalWatchInterval);
}

void Tour::ExpectModalDone(const QString& what) {
    m_modalWatch.stop();
    Expect(std::exchange(m_modalDone, false), what);
}

void Tour::Meanwhile(QProgressBar& progress, int value, std::function<void()> scene) {
    m_meanwhileDone = false;
    const auto look = [this, value, scene = std::move(scene)](int now) {
        if (now == value && !std::exchange(m_meanwhileDone, true)) {
            scene();
        }
    };
    // As a user's hand comes: when the step that moves it serves events.
    m_meanwhile = QObject::connect(&progress, &QProgressBar::valueChanged, &progress, look,
                                   Qt::QueuedConnection);
}

void Tour::ExpectMeanwhileDone(const QString& what) {
    QObject::disconnect(m_meanwhile);
    Expect(m_meanwhileDone, what);
}

MainForm& Tour::Main() {
    Expect(m_program.Main() != nullptr, "the main window is loaded");
    return *m_program.Main();
}

QWidget& Tour::Window(const QString& name) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->objectName() == name && window->isVisible()) {
            return *window;
        }
    }
    throw TourFailure("no window " + name);
}

} // namespace tqx
