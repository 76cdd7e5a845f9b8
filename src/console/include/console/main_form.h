#pragma once

#include "console/tool_windows.h"

#include <link/link_error.h>

#include <QMainWindow>

#include <cstdint>

class QAction;
class QToolBar;

namespace tqx {

struct Bench;
class BlockPanel;
class ControlCentre;
class RegisterConsole;
class WelcomePanel;

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

    void StartMonitorTimers();
    void StopMonitorTimers();
    void StopContinuousReading();
    /// The monitor, then continuous reading.
    void StopAllTimers();

    /// How many EEPROM communications windows are open.
    std::int16_t EEPROMComFormCounter() const { return m_eepromComFormCounter; }

    void EEPROMComFormCounter(std::int16_t count) { m_eepromComFormCounter = count; }

    /// The end of a failed link call, at the top of the application: everything that reads by
    /// itself stops, burst mode is let go, the block panel can be used again, a panel is on view,
    /// and the user is told once; failures that come while the message stands are not told again.
    void LinkFailed(const LinkError& error);

    Bench& TheBench() { return m_bench; }

Q_SIGNALS:
    /// The window has closed and taken the tool windows with it: the application is to end.
    void Unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeToolbar();
    void AddBoardNote(const QString& text);
    void MakePanels();
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
    QToolBar* m_toolbar = nullptr;
    /// The toolbar's keys in their order on the bar.
    QList<QAction*> m_keys;
    WelcomePanel* m_mainPanel = nullptr;
    RegisterConsole* m_readWritePanel = nullptr;
    ControlCentre* m_controlCentrePanel = nullptr;
    BlockPanel* m_blockReadCRCPanel = nullptr;

    /// The panels, of which one is on view.
    QList<QWidget*> m_panels;

    std::int16_t m_eepromComFormCounter = 0;
    std::uint8_t m_response = 0;
    bool m_answered = false;
    bool m_tellingOfFailure = false;
};

} // namespace tqx
