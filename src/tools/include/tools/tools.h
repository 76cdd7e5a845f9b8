#pragma once

#include "tools/sys_info.h"
#include "tools/wait.h"

#include <console/tool_windows.h>
#include <jobs/dump_format.h>

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

namespace tqx {

class EraseEEPROMFRM;
class GPIOConfigFRM;
class RegisterDumpFRM;
class SystemDialogs;
class ToolWindow;
class AboutFRM;

/// The tool windows of the console, and their owner.
///
/// It outlives the main window that opens them. A window that is closed while one of its handlers
/// is under way lives on, unseen, until the handler has come to its end; so UnloadAll may be called
/// from wherever the event loop runs, and every long bus sequence ends soon after it.
class Tools : public QObject, public ToolWindows {
    Q_OBJECT

public:
    /// `waiter` makes the pauses of the long bus sequences.
    explicit Tools(SystemDialogs& dialogs, Waiter waiter = &Wait);
    ~Tools() override;

    void ShowRegisterDump(MainForm& main) override;
    void ShowAbout(MainForm& main) override;
    void ShowGPIOConfig(MainForm& main) override;
    void ShowEraseEEPROM(MainForm& main) override;
    void NewEEPROMCom(MainForm& main, const QString& caption) override;
    void CloseRegisterAccessWindows() override;
    void UnloadAll() override;

    /// Gives the times of a dump; the wall clock unless it is replaced.
    std::function<DumpStamp()> DumpClock = &DumpStamp::Now;

private:
    template <class Window>
    void ShowModal(MainForm& main, QPointer<Window>& instance, std::unique_ptr<Window> window);
    template <class Window>
    Window& Adopt(std::unique_ptr<Window> window);
    void DropUnloaded();

    SystemDialogs& m_dialogs;
    Waiter m_waiter;
    DesktopSysInfoHost m_sysInfoHost;

    /// The windows that are not modal; those that are belong to the call that shows them.
    std::vector<std::unique_ptr<ToolWindow>> m_windows;
    QPointer<GPIOConfigFRM> m_gpioConfig;
    QPointer<RegisterDumpFRM> m_registerDump;
    QPointer<EraseEEPROMFRM> m_eraseEEPROM;
    QPointer<AboutFRM> m_about;
};

} // namespace tqx
