#include "tour.h"

#include <console/main_form.h>
#include <simulator/board_window.h>

#include <QApplication>
#include <QCheckBox>

#include <utility>

namespace tqx {
namespace {

constexpr int Patience = 5000;         // ms
constexpr int ModalWatchInterval = 10; // ms

} // namespace

Tour::Tour(const QDir& directory, QString suffix)
    : m_directory(directory)
    , m_suffix(std::move(suffix))
    , m_board({.Seed = 7716, .Now = [this] { return m_clock.Now(); }})
    , m_program({m_board.Factory(), SimulatedBoard::OSVersionInfoFactory(), "Simulated board",
                 [this] { return std::make_unique<BoardWindow>(m_board); }},
                m_dialogs) {}

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

void Tour::Shoot(QWidget& window, const QString& name) {
    QApplication::processEvents();
    const QString file = m_directory.filePath(name + m_suffix + ".png");
    Expect(window.grab().save(file), "the picture " + file + " was saved");
    ++m_pictures;
}

void Tour::Expect(bool condition, const QString& what) {
    if (!condition) {
        throw TourFailure("not so: " + what);
    }
}

void Tour::WaitFor(const QString& what, const std::function<bool()>& condition) {
    Expect(QTest::qWaitFor(condition, Patience), what);
}

void Tour::Serve(int milliseconds) {
    QTest::qWait(milliseconds);
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

void Tour::Watch(int milliseconds) {
    Serve(milliseconds);
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

void Tour::Meanwhile(std::function<bool()> condition, std::function<void()> scene) {
    m_meanwhileDone = false;
    m_meanwhileWatch.disconnect();
    QObject::connect(&m_meanwhileWatch, &QTimer::timeout, &m_meanwhileWatch,
                     [this, condition = std::move(condition), scene = std::move(scene)] {
                         if (m_meanwhileDone || !condition()) {
                             return;
                         }
                         m_meanwhileWatch.stop();
                         m_meanwhileDone = true;
                         scene();
                     });
    m_meanwhileWatch.start(0);
}

void Tour::ExpectMeanwhileDone(const QString& what) {
    m_meanwhileWatch.stop();
    Expect(std::exchange(m_meanwhileDone, false), what);
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
