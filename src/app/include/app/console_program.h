#pragma once

#include <console/main_form.h>
#include <controls/system_dialogs.h>
#include <device/bench.h>
#include <link/link_server.h>
#include <search/init_form.h>
#include <search/main_form_door.h>
#include <tools/tools.h>

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <functional>
#include <memory>

class QApplication;

namespace tqx {

/// Gives the application the program's look, and lets it go on without a window on view.
void SetUpApplication(QApplication& application);

/// What stands behind the link in this run.
struct BoardChoice {
    LinkFactory Link;
    std::function<std::unique_ptr<OSVersionInfo>()> OSVersion;
    /// What the main window says of it; empty for real hardware.
    QString Note;
    /// Makes a window of the board's own, which stands beside the wizard; empty: there is none.
    std::function<std::unique_ptr<QWidget>()> Window = nullptr;
    /// Makes the pauses of the long bus sequences.
    Waiter Pause = &Wait;
};

/// Where two windows stand: the places of their frames.
struct SideBySide {
    QPoint Left;
    QPoint Right;
};

/// The places of two windows in the middle of `room`, with their frames. Where they are too wide
/// for it they stand at its edges and overlap.
SideBySide PlaceSideBySide(const QRect& room, QSize left, QSize right);

/// The program put together: the bench that every window works on, the wizard, the main window and
/// the tool windows, and the order in which they come and go.
class ConsoleProgram : public QObject, private MainFormDoor {
    Q_OBJECT

public:
    /// `dialogs` must outlive the program.
    ConsoleProgram(BoardChoice board, SystemDialogs& dialogs);
    ~ConsoleProgram() override;

    /// Shows the wizard, and the board's window if there is one.
    void Start();

    /// Closes every window and ends the program in order, whatever is under way.
    void End();

    Bench& TheBench() { return m_bench; }

    /// The wizard, null once the application is ending.
    InitForm* Wizard() { return m_wizard.get(); }

    /// The main window, null until the wizard has loaded it.
    MainForm* Main() { return m_main.get(); }

Q_SIGNALS:
    /// The last window has gone: the event loop is to end.
    void Ended();

private:
    /// A link call has failed: stops what reads by itself and tells the user once.
    void LinkFailed(const LinkError& error);
    void ShowBoardWindow();
    void Load() override;
    void Show() override;
    void Unload() override;
    void EndApplication() override;

    QString m_note;
    SystemDialogs& m_dialogs;
    Bench m_bench;
    Tools m_tools;
    std::unique_ptr<MainForm> m_main;
    std::unique_ptr<InitForm> m_wizard;
    /// Independent of the others: no modal window of the console blocks it.
    std::unique_ptr<QWidget> m_boardWindow;
    bool m_tellingOfFailure = false;
};

/// Runs the program on `board` until its last window closes. The process's exit status.
///
/// `desktopId` names the program's desktop entry and its icon, so that a desktop shows its windows
/// under that entry.
int RunConsole(int argc, char** argv, const QString& desktopId, BoardChoice board);

} // namespace tqx
