#include "tools/tools.h"

#include "about/about_frm.h"
#include "eeprom_com/eeprom_com_frm.h"
#include "erase_eeprom/erase_eeprom_frm.h"
#include "gpio_config/gpio_config_frm.h"
#include "register_dump/register_dump_frm.h"

#include <console/main_form.h>
#include <controls/look.h>

#include <QEventLoop>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace tqx {
namespace {

constexpr QLatin1String RegisterAccess("Register Access");
constexpr int CascadeStep = 8 * look::Grid;

/// The message box of `main`, which outlives every window that uses it.
MessageDoor DoorOf(MainForm& main) {
    return [&main](const QString& title, const QString& message, std::uint8_t okOnly) {
        return main.QVNMsgBox(title, message, okOnly);
    };
}

/// Keeps `window` in front of `main` without making it a child that dies with it.
void StandBefore(MainForm& main, QWidget& window) {
    window.winId();
    if (main.windowHandle() != nullptr) {
        window.windowHandle()->setTransientParent(main.windowHandle());
    }
}

/// Puts the `index`th of several windows a step down and right of the one before it, within the
/// screen of `main`.
void Cascade(const MainForm& main, QWidget& window, int index) {
    const QRect room = main.screen()->availableGeometry();
    const QSize size = window.sizeHint();
    const QPoint wanted = main.pos() + QPoint(CascadeStep, CascadeStep) * (index + 1);
    window.move(
        std::clamp(wanted.x(), room.left(), std::max(room.left(), room.right() - size.width())),
        std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() - size.height())));
}

void BringToFront(QWidget& window) {
    window.raise();
    window.activateWindow();
}

bool IsOpen(const ToolWindow* window) {
    return window != nullptr && !window->Unloading();
}

} // namespace

Tools::Tools(SystemDialogs& dialogs, Waiter waiter)
    : m_dialogs(dialogs)
    , m_waiter(std::move(waiter)) {}

Tools::~Tools() = default;

void Tools::ShowRegisterDump(MainForm& main) {
    if (m_registerDump) {
        BringToFront(*m_registerDump);
        return;
    }
    main.StopAllTimers();
    auto window = std::make_unique<RegisterDumpFRM>(main.TheBench(), DoorOf(main), m_dialogs);
    window->Clock = DumpClock;
    ShowModal(main, m_registerDump, std::move(window));
}

void Tools::ShowAbout(MainForm& main) {
    if (m_about) {
        BringToFront(*m_about);
        return;
    }
    ShowModal(main, m_about, std::make_unique<AboutFRM>(DoorOf(main), m_sysInfoHost));
}

void Tools::ShowEraseEEPROM(MainForm& main) {
    if (m_eraseEEPROM) {
        BringToFront(*m_eraseEEPROM);
        return;
    }
    ShowModal(main, m_eraseEEPROM,
              std::make_unique<EraseEEPROMFRM>(main.TheBench(), DoorOf(main), m_waiter));
}

void Tools::ShowGPIOConfig(MainForm& main) {
    if (!IsOpen(m_gpioConfig)) {
        m_gpioConfig = &Adopt(std::make_unique<GPIOConfigFRM>(main.TheBench()));
        StandBefore(main, *m_gpioConfig);
        m_gpioConfig->show();
    }
    BringToFront(*m_gpioConfig);
}

void Tools::NewEEPROMCom(MainForm& main, const QString& caption) {
    EEPROMComFRM& window =
        Adopt(std::make_unique<EEPROMComFRM>(main.TheBench(), DoorOf(main), m_waiter, caption));
    connect(&window, &EEPROMComFRM::CloseAllWanted, this, &Tools::CloseRegisterAccessWindows);
    connect(&window, &ToolWindow::Closed, &main, [&main] {
        main.EEPROMComFormCounter(static_cast<std::int16_t>(main.EEPROMComFormCounter() - 1));
    });
    StandBefore(main, window);
    Cascade(main, window, static_cast<int>(m_windows.size()) - 1);
    window.show();
}

void Tools::CloseRegisterAccessWindows() {
    for (const auto& window : m_windows) {
        if (window->windowTitle().startsWith(RegisterAccess)) {
            window->close();
        }
    }
}

void Tools::UnloadAll() {
    for (const auto& window : m_windows) {
        window->close();
    }
    for (ToolWindow* modal :
         std::initializer_list<ToolWindow*>{m_registerDump, m_eraseEEPROM, m_about}) {
        if (modal != nullptr) {
            modal->close();
        }
    }
}

/// Shows `window` until it is gone, with all of its handlers.
template <class Window>
void Tools::ShowModal(MainForm& main, QPointer<Window>& instance, std::unique_ptr<Window> window) {
    instance = window.get();
    StandBefore(main, *window);
    QEventLoop loop;
    connect(window.get(), &ToolWindow::Unloaded, &loop, &QEventLoop::quit);
    // Before the main window it blocks that and all that stand before it, and no others.
    const bool before = window->windowHandle()->transientParent() != nullptr;
    window->setWindowModality(before ? Qt::WindowModal : Qt::ApplicationModal);
    window->show();
    loop.exec(QEventLoop::DialogExec);
}

/// Takes `window` over until it is unloaded.
template <class Window>
Window& Tools::Adopt(std::unique_ptr<Window> window) {
    Window& adopted = *window;
    m_windows.push_back(std::move(window));
    // Queued: the handler that tells of the end is still in the window's code.
    connect(&adopted, &ToolWindow::Unloaded, this, &Tools::DropUnloaded, Qt::QueuedConnection);
    return adopted;
}

void Tools::DropUnloaded() {
    std::erase_if(m_windows, [](const auto& window) { return window->CanBeDestroyed(); });
}

} // namespace tqx
