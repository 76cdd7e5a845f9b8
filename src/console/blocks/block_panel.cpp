#include "blocks/block_panel.h"

#include "blocks/frame.h"
#include "blocks/grid.h"
#include "blocks/pec_results.h"
#include "blocks/start.h"
#include "blocks/transfer.h"

#include <controls/look.h>
#include <controls/number_text.h>
#include <device/bench.h>

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

namespace tqx {
namespace {

constexpr int SideWidth = 58 * look::Grid;
constexpr int CommunicationsWidth = 30 * look::Grid;

/// A line of notes that wraps in the room that there is.
QLabel* Note(const QString& name, const QString& text) {
    auto* note = new QLabel(text);
    note->setObjectName(name);
    note->setWordWrap(true);
    note->setFont(look::WordsFont(look::Size::Note));
    note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    look::SetInk(*note, look::QuietInk);
    return note;
}

/// A group of `caption` with its widgets in a line or a column.
QGroupBox* Group(const QString& caption, QBoxLayout::Direction direction,
                 std::initializer_list<QWidget*> widgets) {
    auto* group = new QGroupBox(caption);
    auto* box = new QBoxLayout(direction, group);
    box->setSpacing(2 * look::Grid);
    for (QWidget* widget : widgets) {
        box->addWidget(widget);
    }
    box->addStretch(1);
    return group;
}

} // namespace

BlockPanel::BlockPanel(Bench& bench, MessageDoor message, QWidget* parent)
    : QWidget(parent)
    , m_bench(bench)
    , m_message(std::move(message))
    , m_grid(new BlockGrid)
    , m_frame(new BlockFrame)
    , m_start(new BlockStart)
    , m_results(new PECResults) {
    setObjectName("BlockReadCRCPanel");
    MakeLayout();
    m_transfer = std::make_unique<BlockTransfer>(
        m_bench, m_message,
        BlockControls{*m_blockRead, *m_blockWrite, *m_grid, *m_frame, *m_start, *m_results});
    Connect();
}

BlockPanel::~BlockPanel() = default;

QPushButton* BlockPanel::Button(const QString& name, const QString& caption,
                                const QString& tooltip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tooltip);
    button->setAutoDefault(false);
    button->setMinimumWidth(button->sizeHint().width() + 2 * look::Grid);
    return button;
}

QGroupBox* BlockPanel::MakeRegisterAccess() {
    m_eraseEPROM = Button("EraseEPROMCMD", "Erase EEPROM", "Open the EEPROM erase window");
    auto* coms = Button("EEPROMComsCMD", "EEPROM/RAM",
                        "Open a new window on sixteen bytes of EEPROM or registers");
    auto* closeAll = Button("CloseAllEEPROMCMD", "Close All", "Close every Register Access window");
    connect(m_eraseEPROM, &QPushButton::clicked, this, &BlockPanel::EraseEEPROMWanted);
    connect(coms, &QPushButton::clicked, this, &BlockPanel::EEPROMComsWanted);
    connect(closeAll, &QPushButton::clicked, this, &BlockPanel::CloseAllEEPROMWanted);

    auto* buttons = new QWidget;
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2 * look::Grid);
    for (QPushButton* button : {m_eraseEPROM, coms, closeAll}) {
        line->addWidget(button);
    }
    return Group("Register Access", QBoxLayout::TopToBottom,
                 {buttons, Note("Label6", "Click more than once for multiple windows.")});
}

QGroupBox* BlockPanel::MakeBlockReadWrite() {
    auto* erase = Button("EraseEEPROMCMD", "Erase EEPROM", "Erase the EEPROM before a block write");
    connect(erase, &QPushButton::clicked, this, &BlockPanel::EraseEEPROMWanted);
    auto* notes = Note("NotesLBL", "When executing EEPROM block writes, please make sure you have "
                                   "erased the appropriate EEPROM address space first. ");
    auto* group = Group("Block Read/Write", QBoxLayout::TopToBottom, {erase, notes});
    group->layout()->setAlignment(erase, Qt::AlignLeft);
    return group;
}

QGroupBox* BlockPanel::MakeCommunications() {
    m_blockWrite = Button("BlockWriteCMD", "Block Write",
                          "Write as many bytes of the write row as the byte count says");
    m_blockRead = Button("BlockReadCMD", "Block Read", "Read 32 bytes from the start position");
    m_blockWrite->setMinimumWidth(CommunicationsWidth);
    return Group("Communications", QBoxLayout::TopToBottom, {m_blockWrite, m_blockRead});
}

QGroupBox* BlockPanel::MakeUsefulFunctions() {
    auto* random = Button("RandDataFillCMD", "Random Data Fill",
                          "Fill the write row with the next bytes of a fixed sequence");
    auto* read =
        Button("ReadDataFillCMD", "Read Data Fill", "Fill the write row with the bytes read");
    connect(random, &QPushButton::clicked, this, &BlockPanel::RandomDataFill);
    connect(read, &QPushButton::clicked, this, &BlockPanel::ReadDataFill);
    return Group("Useful Functions", QBoxLayout::LeftToRight, {random, read});
}

QGroupBox* BlockPanel::MakeCleanUpDisplay() {
    auto* fcs = Button("ClearFcsCMD", "Clear Fcs", "Clear every PEC read-out");
    auto* read = Button("ClearReadCMD", "Clear Read", "Clear the bytes read");
    connect(fcs, &QPushButton::clicked, this, [this] {
        m_grid->ClearPEC();
        m_frame->ClearPEC();
    });
    connect(read, &QPushButton::clicked, m_grid, &BlockGrid::ClearReading);
    return Group("Clean Up Display", QBoxLayout::LeftToRight, {fcs, read});
}

void BlockPanel::MakeLayout() {
    auto* top = new QHBoxLayout;
    top->setSpacing(3 * look::Grid);
    top->addWidget(MakeRegisterAccess(), 3);
    top->addWidget(MakeBlockReadWrite(), 3);
    top->addWidget(m_start);
    top->addWidget(MakeCommunications());

    auto* fills = new QHBoxLayout;
    fills->setSpacing(3 * look::Grid);
    fills->addWidget(MakeUsefulFunctions());
    fills->addWidget(MakeCleanUpDisplay());
    fills->addStretch(1);

    auto* block = new QVBoxLayout;
    block->setSpacing(2 * look::Grid);
    block->addWidget(m_grid, 100);
    block->addLayout(fills);
    block->addStretch(1);

    auto* side = new QVBoxLayout;
    side->setSpacing(2 * look::Grid);
    side->addWidget(m_frame);
    side->addWidget(m_results);
    side->addStretch(1);
    m_frame->setFixedWidth(SideWidth);
    m_results->setFixedWidth(SideWidth);

    auto* lower = new QHBoxLayout;
    lower->setSpacing(3 * look::Grid);
    lower->addLayout(block, 1);
    lower->addLayout(side);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3 * look::Grid);
    layout->addLayout(top);
    layout->addLayout(lower, 1);
}

void BlockPanel::Connect() {
    const LinkFailures& failures = m_bench.Failures;
    connect(m_blockRead, &QPushButton::clicked, this,
            OnLink(failures, [this] { Run(m_blockRead, &BlockTransfer::Read); }));
    connect(m_blockWrite, &QPushButton::clicked, this,
            OnLink(failures, [this] { Run(m_blockWrite, &BlockTransfer::Write); }));
    connect(m_frame, &BlockFrame::UsePECClicked, this,
            OnLink(failures, [this](bool use) { UsePECClicked(use); }));
    connect(m_frame, &BlockFrame::ByteCountEntered, this,
            [this](const QString& text) { m_transfer->EnterByteCount(text); });
    connect(m_grid, &BlockGrid::PasteRefused, this,
            [this](const QString& why) { m_message("Error", why, 1); });
}

void BlockPanel::Run(QPushButton* button, void (BlockTransfer::*transfer)()) {
    if (button->hasFocus()) {
        // A button that is disabled would hand the focus on, and the box that gets it selects its
        // byte.
        m_lostFocus = button;
        m_grid->setFocus();
    }
    (*m_transfer.*transfer)();
    GiveFocusBack();
}

void BlockPanel::GiveFocusBack() {
    if (QPushButton* button = std::exchange(m_lostFocus, nullptr)) {
        button->setFocus();
    }
}

void BlockPanel::Load() {
    if (m_bench.Link->ActiveMedium() != ActivePrinterPort) {
        m_eraseEPROM->setEnabled(false);
    }
    m_start->Load();
}

void BlockPanel::Enter() {
    m_frame->SlaveAddress(m_bench.Bus.BusCell.SlaveAddress);
}

void BlockPanel::Recover() {
    if (!m_blockRead->isEnabledTo(this) || !m_blockWrite->isEnabledTo(this)) {
        m_blockRead->setEnabled(true);
        m_blockWrite->setEnabled(true);
        // No transfer is under way any more, and its PEC is not known.
        m_results->Reset(m_frame->UsePEC());
    }
    GiveFocusBack();
}

void BlockPanel::UsePECClicked(bool use) {
    m_bench.Link->PrinterPortLink().BoardBus().UsePEC(use);
    m_results->Reset(use);
}

void BlockPanel::RandomDataFill() {
    for (int column = 1; column <= GridColumns; ++column) {
        m_grid->WriteEntry(column).Value(m_random.NextByte());
    }
}

void BlockPanel::ReadDataFill() {
    for (int column = 1; column <= GridColumns; ++column) {
        const auto byte = ByteOf(m_grid->ReadData(column).text(), 16);
        m_grid->WriteEntry(column).Value(byte.value_or(0));
    }
}

} // namespace tqx
