#pragma once

#include <QString>

namespace tqx {

class MainForm;

/// The tool windows, as the main window opens them. It knows none of them by name.
class ToolWindows {
public:
    virtual ~ToolWindows() = default;

    /// The register dump, modal: comes back when the window is gone.
    virtual void ShowRegisterDump(MainForm& main) = 0;
    /// The about box, modal.
    virtual void ShowAbout(MainForm& main) = 0;
    /// The GPIO control panel, not modal; there is one, and a second call brings it to the front.
    virtual void ShowGPIOConfig(MainForm& main) = 0;
    /// The EEPROM erase window, modal.
    virtual void ShowEraseEEPROM(MainForm& main) = 0;
    /// A new EEPROM communications window with this caption, not modal. On every way that it
    /// closes it lowers MainForm::EEPROMComFormCounter by one.
    virtual void NewEEPROMCom(MainForm& main, const QString& caption) = 0;
    /// Closes every EEPROM communications window whose caption begins with "Register Access".
    virtual void CloseRegisterAccessWindows() = 0;
    /// Closes every tool window that stands open.
    virtual void UnloadAll() = 0;
};

} // namespace tqx
