#include "console/main_form.h"

#include "blocks/block_panel.h"
#include "console/message_door.h"
#include "console/version.h"
#include "control_centre/control_centre.h"
#include "registers/register_console.h"
#include "shell/main_panel.h"
#include "shell/msg_box_frm.h"
#include "shell/toolbar_keys.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>
#include <device/bench.h>
#include <device/register_addresses.h>
#include <link/link_error.h>
#include <link/link_new_com_port.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace tqx {
namespace {

/// Windows of this count are the most that can stand open.
constexpr int EEPROMComLimit = 10;

/// The bit delay that the console sets for the bus lines at load.
constexpr std::uint8_t LoadedBitDelayCount = 100;

} // namespace

MainForm::MainForm(Bench& bench, ToolWindows& tools, const QString& boardNote, QWidget* parent)
    : QMainWindow(parent)
    , m_bench(bench)
    , m_tools(tools) {
    setObjectName("MainForm");
    setWindowTitle("TQX7716 Evaluation Software");
    QToolBar& toolbar = MakeToolbar();
    MakePanels(toolbar.actions());
    if (!boardNote.isEmpty()) {
        setWindowTitle(windowTitle() + " - " + boardNote);
        AddBoardNote(toolbar, boardNote);
    }
    ConnectPanels();
    resize(1120, 720);
    Load();
    ShowLinkNotices();
}

MainForm::~MainForm() {
    m_bench.Link.Setup.Notice = nullptr;
}

QToolBar& MainForm::MakeToolbar() {
    QToolBar& toolbar = *addToolBar("Tools");
    toolbar.setObjectName("Toolbar1");
    toolbar.setMovable(false);
    toolbar.setContextMenuPolicy(Qt::PreventContextMenu);
    toolbar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolbar.setIconSize({24, 24});
    for (const ToolbarKey& key : ToolbarKeys) {
        auto* action =
            toolbar.addAction(QIcon(QStringLiteral(":/icons/%1.svg").arg(key.Icon)), key.Name);
        action->setObjectName(key.Key);
        action->setToolTip(key.Tooltip);
        action->setShortcut(QKeySequence(key.Shortcut));
        connect(action, &QAction::triggered, this,
                OnLink(m_bench.Failures, [this, action] { KeyPressed(action->objectName()); }));
        auto* button = toolbar.widgetForAction(action);
        button->setObjectName(key.Key);
        button->setFocusPolicy(Qt::TabFocus);
        button->setMinimumWidth(19 * look::Grid);
    }
    return toolbar;
}

void MainForm::AddBoardNote(QToolBar& toolbar, const QString& text) {
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    toolbar.addWidget(space);
    auto* note = new QLabel(text);
    note->setObjectName("BoardNote");
    note->setFont(look::WordsFont(look::Size::Text, look::Strong));
    note->setContentsMargins(0, 0, 3 * look::Grid, 0);
    look::SetInk(*note, look::QuietInk);
    toolbar.addWidget(note);
}

void MainForm::MakePanels(const QList<QAction*>& actions) {
    m_welcome = new MainPanel(actions, QStringLiteral("Version ") + VersionText);
    m_registers = new RegisterConsole(m_bench);
    m_controlCentre = new ControlCentre(m_bench);
    m_blocks = new BlockPanel(
        m_bench, [this](const QString& title, const QString& message, std::uint8_t okOnly) {
            return QVNMsgBox(title, message, okOnly);
        });

    auto* centre = new QWidget;
    auto* layout = new QGridLayout(centre);
    m_panels = {m_welcome, m_registers, m_controlCentre, m_blocks};
    for (QWidget* panel : m_panels) {
        layout->addWidget(panel, 0, 0);
    }
    setCentralWidget(centre);
    ShowOnly(m_welcome);
}

void MainForm::ConnectPanels() {
    connect(m_controlCentre, &ControlCentre::GPIOPanelWanted, this,
            OnLink(m_bench.Failures, [this] { m_tools.ShowGPIOConfig(*this); }));
    connect(m_blocks, &BlockPanel::EraseEEPROMWanted, this,
            OnLink(m_bench.Failures, [this] { m_tools.ShowEraseEEPROM(*this); }));
    connect(m_blocks, &BlockPanel::EEPROMComsWanted, this,
            OnLink(m_bench.Failures, [this] { OpenEEPROMCom("Register Spy"); }));
    connect(m_blocks, &BlockPanel::CloseAllEEPROMWanted, this, &MainForm::CloseAllEEPROMComs);
}

/// Only once nothing can raise any more: the way leads to a window, which must be there.
void MainForm::ShowLinkNotices() {
    m_bench.Link.Setup.Notice = [this](std::string_view title, std::string_view message) {
        QVNMsgBox(TextOf(title), TextOf(message), 1);
    };
}

void MainForm::Load() {
    m_bench.Link.Setup.BitDelayCount = LoadedBitDelayCount;
    m_bench.Channels.ConfigureChannels();
    m_blocks->Load();
    EEPROMLink& eeprom = m_bench.Link->PrinterPortLink().EEPROMLink();
    eeprom.EEPROMWait(false);
    eeprom.EEPROMDelay(0);
}

std::uint8_t MainForm::QVNMsgBox(const QString& title, const QString& message,
                                 std::uint8_t okOnly) {
    QWidget* const inFront = QApplication::activeModalWidget();
    MsgBoxFRM box(inFront != nullptr || !isVisible() ? inFront : this);
    connect(&box, &MsgBoxFRM::UserResponse, this,
            [this](std::uint8_t response) { m_response = response; });
    if (box.parentWidget() != nullptr) {
        box.setWindowModality(Qt::WindowModal); // a window that is none of the console's goes on
    }
    box.SetUp(title, message, okOnly == 1);
    box.exec();
    if (box.isVisible()) {
        return 0; // the program ends around the box: nobody has agreed to anything
    }
    return m_response;
}

void MainForm::StopMonitorTimers() {
    m_controlCentre->StopMonitorTimers();
}

void MainForm::StopContinuousReading() {
    m_registers->StopContinuousReading();
}

void MainForm::StopAllTimers() {
    StopMonitorTimers();
    StopContinuousReading();
}

void MainForm::LinkFailed(const LinkError& error) {
    StopAllTimers();
    try {
        m_bench.Link->PrinterPortLink().BurstMode(false);
    } catch (const LinkError&) {
        // The link is down already, and the user hears of it below.
    }
    m_blocks->Recover();
    m_controlCentre->LetGo();
    if (!m_controlCentre->ControlCentreReady) {
        m_controlCentre->hide(); // half set up it writes no limit; the next entry starts anew
    }
    if (std::ranges::all_of(m_panels, &QWidget::isHidden)) {
        ShowOnly(m_welcome); // the failure came between two panels
    }
    if (m_tellingOfFailure) {
        return;
    }
    const QScopedValueRollback telling(m_tellingOfFailure, true);
    const LinkFailureNotice notice = NoticeOf(error);
    QVNMsgBox(notice.Title, notice.Text, 1);
}

void MainForm::closeEvent(QCloseEvent* event) {
    StopAllTimers();
    m_tools.UnloadAll();
    event->accept();
    Q_EMIT Unloaded();
}

void MainForm::keyPressEvent(QKeyEvent* event) {
    if (!kit::PressFocusedButton(*this, *event)) {
        QMainWindow::keyPressEvent(event);
    }
}

void MainForm::ShowOnly(QWidget* panel) {
    for (QWidget* each : m_panels) {
        each->setVisible(each == panel);
    }
    GiveKeyboard(*panel);
}

void MainForm::GiveKeyboard(QWidget& panel) {
    if (!panel.isAncestorOf(focusWidget())) {
        panel.setFocus();
        focusNextChild();
    }
}

void MainForm::KeyPressed(const QString& key) {
    if (key == "Save1") {
        m_tools.ShowRegisterDump(*this);
    } else if (key == "Go1") {
        Go();
    } else if (key == "ReadWrite1") {
        ShowReadWrite();
    } else if (key == "ControlPanel1") {
        ShowControlPanel();
    } else if (key == "BlockReadWrite") {
        ShowBlockReadWrite();
    } else if (key == "GPIO") {
        m_tools.ShowGPIOConfig(*this);
    } else if (key == "RegAccess") {
        StopAllTimers();
        OpenEEPROMCom("Register Access");
    } else if (key == "EraseEEPROM") {
        StopAllTimers();
        m_tools.ShowEraseEEPROM(*this);
    } else if (key == "About1") {
        m_tools.ShowAbout(*this);
    }
}

void MainForm::ShowReadWrite() {
    ShowOnly(m_registers);
    StopMonitorTimers();
}

void MainForm::ShowControlPanel() {
    StopContinuousReading();
    m_registers->hide();
    m_welcome->hide();
    m_controlCentre->SetUpDisplay();
    m_blocks->hide();
    m_controlCentre->show();
    GiveKeyboard(*m_controlCentre);
    if (!m_controlCentre->ControlCentreReady) {
        m_controlCentre->SetUpControlCentre();
    }
    m_controlCentre->ControlCentreReady = true;
}

void MainForm::ShowBlockReadWrite() {
    m_blocks->Enter();
    ShowOnly(m_blocks);
    StopAllTimers();
}

void MainForm::Go() {
    m_welcome->hide();
    if (QVNMsgBox("Information",
                  "Would you like to automatically initialize the TQX7716 evaluation system",
                  0) == 0) {
        return;
    }
    StopContinuousReading();
    WriteAt(m_bench.Bus, reg::Config1, 0x03);
    for (std::size_t fan = 0; fan < m_bench.Channels.Fans.size(); ++fan) {
        m_bench.Coms.WriteRegisterByte(static_cast<std::uint8_t>(reg::Fan0HighLimit + fan), 0xFF);
    }
    m_bench.Coms.WriteRegisterByte(reg::Mask6, 0xFF);
    m_bench.Coms.WriteRegisterByte(reg::GPIOConfig3, 0x55);
    m_bench.Coms.WriteRegisterByte(reg::GPIOConfig4, 0x55);
    m_controlCentre->SetUpDisplay();
    m_controlCentre->SetUpControlCentre();
    m_bench.Channels.WriteDefaultLimits();
    m_controlCentre->OfferStop();
    ShowOnly(m_controlCentre);
    m_controlCentre->ControlCentreReady = true;
}

void MainForm::OpenEEPROMCom(const QString& caption) {
    if (m_eepromComFormCounter < EEPROMComLimit) {
        ++m_eepromComFormCounter;
        m_tools.NewEEPROMCom(*this,
                             QStringLiteral("%1 %2").arg(caption).arg(m_eepromComFormCounter));
    } else {
        QVNMsgBox("Safety Information",
                  "To conserve memory, RAM/EEPROM windows have been limited to 10.", 1);
    }
}

void MainForm::CloseAllEEPROMComs() {
    m_tools.CloseRegisterAccessWindows();
    m_eepromComFormCounter = 0;
}

} // namespace tqx
