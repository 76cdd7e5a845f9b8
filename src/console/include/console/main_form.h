#pragma once

#include "console/tool_windows.h"

#include <QMainWindow>

#include <cstdint>

class QToolBar;

namespace tqx {

struct Bench;
class BlockPanel;
class ControlCentre;
class LinkError;
class RegisterConsole;

/// The main window: the toolbar, the four panels of which one is on view, the monitor's switches
/// and the application's message box.
///
/// Making it is its load: it configures the channels, which takes two reads from the link, and
/// raises LinkError when they fail. It is made unseen, before a chip is chosen.
class MainForm : public QMainWindow {
    Q_OBJECT

public:
    /// `boardNote`: what stands behind the link where that is no real board ("Simulated board"),
    /// shown in the title and at the end of the toolbar; empty otherwise.
    MainForm(Bench& bench, ToolWindows& tools, const QString& boardNote = {},
             QWidget* parent = nullptr);
    ~MainForm() override;

    /// The application's modal question and notice box. `okOnly` 1: only OK can be pressed; any
    /// other value offers Cancel too. 1 for OK, 0 for Cancel.
    ///
    /// A box that its own close control closes gives the answer of the box before it, and 0 where
    /// there was none; one that stands while the program ends gives 0. Timers go on behind the box.
    std::uint8_t QVNMsgBox(const QString& title, const QString& message, std::uint8_t okOnly);

    void StopMonitorTimers();
    void StopContinuousReading();
    /// The monitor, then continuous reading.
    void StopAllTimers();

    /// How many EEPROM communications windows are open.
    std::int16_t EEPROMComFormCounter() const { return m_eepromComFormCounter; }
    void EEPROMComFormCounter(std::int16_t count) { m_eepromComFormCounter = count; }

    /// What is done about a failed link call once its handler has ended: everything that reads by
    /// itself stops, burst mode ends, the block panel can be used again, the gauge's pointer is let
    /// go, a panel is on view, and the user is told once; failures that come while the message
    /// stands are not told again.
    void LinkFailed(const LinkError& error);

    Bench& TheBench() { return m_bench; }

Q_SIGNALS:
    /// The window has closed and taken the tool windows with it: the application is to end.
    void Unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QToolBar& MakeToolbar();
    static void AddBoardNote(QToolBar& toolbar, const QString& text);
    void MakePanels(const QList<QAction*>& actions);
    void ConnectPanels();
    void ShowLinkNotices();
    void Load();

    void ShowOnly(QWidget* panel);
    /// A panel that comes on view takes the focus with its first control.
    void GiveKeyboard(QWidget& panel);
    void KeyPressed(const QString& key);
    void ShowReadWrite();
    void ShowControlPanel();
    void ShowBlockReadWrite();
    void Go();
    void OpenEEPROMCom(const QString& caption);
    void CloseAllEEPROMComs();

    Bench& m_bench;
    ToolWindows& m_tools;
    QWidget* m_welcome = nullptr;
    RegisterConsole* m_registers = nullptr;
    ControlCentre* m_controlCentre = nullptr;
    BlockPanel* m_blocks = nullptr;
    /// These four, of which one is on view.
    QList<QWidget*> m_panels;

    std::int16_t m_eepromComFormCounter = 0;
    /// The last answer given in a message box.
    std::uint8_t m_response = 0;
    bool m_tellingOfFailure = false;
};

} // namespace tqx
