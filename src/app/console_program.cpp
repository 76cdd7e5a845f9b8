#include "app/console_program.h"

#include "end_signals.h"
#include "help_pages.h"

#include <console/message_door.h>
#include <controls/look.h>

#include <QApplication>
#include <QIcon>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>
#include <csignal>
#include <utility>

namespace tqx {
namespace {

constexpr QSize Frame(8, 32); // around a window, about
constexpr int Gap = 8;

} // namespace

void SetUpApplication(QApplication& application) {
    // No display name: the desktop would add it to the caption of every window.
    // The last window's close is not the end: the wizard hides when the user skips it.
    QApplication::setQuitOnLastWindowClosed(false);
    look::Apply(application);
}

SideBySide PlaceSideBySide(const QRect& room, QSize left, QSize right) {
    const QSize both(left.width() + Gap + right.width() + 2 * Frame.width(),
                     std::max(left.height(), right.height()) + Frame.height());
    const int x = room.left() + std::max(0, (room.width() - both.width()) / 2);
    const int y = room.top() + std::max(0, (room.height() - both.height()) / 2);
    const int rightMost = room.right() + 1 - right.width() - Frame.width();
    return {
        .Left = {x, y},
        .Right = {
            std::max(room.left(), std::min(x + left.width() + Frame.width() + Gap, rightMost)), y}};
}

ConsoleProgram::ConsoleProgram(BoardChoice board, SystemDialogs& dialogs)
    : m_note(std::move(board.Note))
    , m_dialogs(dialogs)
    , m_bench(std::move(board.Link))
    , m_tools(dialogs, std::move(board.Pause))
    , m_wizard(std::make_unique<InitForm>(m_bench, board.OSVersion, dialogs,
                                          static_cast<MainFormDoor&>(*this)))
    , m_boardWindow(board.Window ? board.Window() : nullptr) {
    // Later: the user is told in a window, which must not come up in the middle of the handler.
    m_bench.Failures = [this](const LinkError& error) {
        QMetaObject::invokeMethod(
            this, [this, error] { LinkFailed(error); }, Qt::QueuedConnection);
    };
}

ConsoleProgram::~ConsoleProgram() = default;

void ConsoleProgram::Start() {
    if (m_boardWindow) {
        ShowBoardWindow();
    }
    m_wizard->show();
}

void ConsoleProgram::ShowBoardWindow() {
    const QSize wizard = m_wizard->size();
    const QSize board = m_boardWindow->sizeHint();
    const SideBySide places =
        PlaceSideBySide(m_wizard->screen()->availableGeometry(), wizard, board);
    m_wizard->move(places.Left);
    m_boardWindow->move(places.Right);
    m_boardWindow->show();
}

void ConsoleProgram::LinkFailed(const LinkError& error) {
    if (m_main) {
        m_main->LinkFailed(error);
        return;
    }
    if (m_tellingOfFailure) {
        return;
    }
    const QScopedValueRollback telling(m_tellingOfFailure, true);
    const LinkFailureNotice notice = NoticeOf(error);
    m_dialogs.Message(m_wizard.get(), SystemDialogs::Icon::Exclamation, notice.Title, notice.Text);
}

void ConsoleProgram::Load() {
    if (m_main) {
        return;
    }
    m_main = std::make_unique<MainForm>(m_bench, m_tools, m_note);
    connect(m_main.get(), &MainForm::Unloaded, this, &ConsoleProgram::EndApplication);
}

void ConsoleProgram::Show() {
    Load();
    m_main->resize(m_main->size().boundedTo(m_main->screen()->availableSize() - Frame));
    m_main->show();
    m_main->raise();
    m_main->activateWindow();
}

void ConsoleProgram::Unload() {
    m_tools.UnloadAll();
    if (m_main) {
        m_main->hide();
        m_main.release()->deleteLater();
    }
}

void ConsoleProgram::End() {
    EndApplication();
}

void ConsoleProgram::EndApplication() {
    m_tools.UnloadAll();
    if (m_wizard) {
        m_wizard->hide();
    }
    if (m_main) {
        m_main->StopAllTimers();
        m_main->hide();
    }
    if (m_boardWindow) {
        m_boardWindow->hide();
    }
    Q_EMIT Ended();
}

int RunConsole(int argc, char** argv, const QString& desktopId, BoardChoice board) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is an error that is told
    QApplication application(argc, argv);
    SetUpApplication(application);
    QApplication::setDesktopFileName(desktopId);
    QApplication::setWindowIcon(QIcon(":/icons/" + desktopId + ".svg"));
    DesktopDialogs dialogs;
    HelpPages help(QApplication::applicationDirPath(), dialogs);
    application.installEventFilter(&help);
    ConsoleProgram program(std::move(board), dialogs);
    QObject::connect(&program, &ConsoleProgram::Ended, &application,
                     [] { QCoreApplication::exit(0); });
    const EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::Received, &program, &ConsoleProgram::End);
    program.Start();
    return QApplication::exec();
}

} // namespace tqx
