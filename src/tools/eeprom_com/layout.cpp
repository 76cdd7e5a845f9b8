#include "eeprom_com/eeprom_com_frm.h"
#include "form_parts.h"

#include <console/high_byte_combo.h>
#include <controls/look.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>

// What stands where in the EEPROM communications window, and what each control sets off.
namespace tqx {
namespace {

constexpr int RowHeight = 9 * look::Grid;
constexpr int NotesWidth = 220;
constexpr std::chrono::milliseconds AutoReadInterval{100};

QCheckBox* CheckBox(const QString& text, const QString& name, const QString& tooltip,
                    const QString& shortcut) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    box->setShortcut(QKeySequence(shortcut));
    box->setToolTip(QStringLiteral("%1 (%2)").arg(tooltip, shortcut));
    return box;
}

} // namespace

void EEPROMComFRM::MakeLayout() {
    m_rwFrame = MakeRows();
    auto* groups = new QVBoxLayout;
    groups->setSpacing(2 * look::Grid);
    groups->addWidget(MakeLegend());
    groups->addWidget(m_commandFrame = MakeCommands());
    groups->addWidget(m_eepromFrame = MakeEEPROM());
    groups->addWidget(m_autoFillFrame = MakeFills());
    groups->addWidget(MakeNotes());
    groups->addStretch();
    groups->addWidget(m_closeFrame = MakeClose());

    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_rwFrame);
    layout->addLayout(groups);
}

QGroupBox* EEPROMComFRM::MakeRows() {
    QGroupBox* frame = parts::Frame(tr("Rows"), "RWFrame");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(0);
    grid->addWidget(parts::Heading(tr("Address"), "AddressHeading"), 0, 1, Qt::AlignRight);
    grid->addWidget(parts::Heading(tr("Read"), "ReadHeading"), 0, 2, Qt::AlignRight);
    grid->addWidget(parts::Heading(tr("Write"), "WriteHeading"), 0, 5, Qt::AlignRight);
    m_rows.reserve(RowCount);
    for (int i = 0; i < RowCount; ++i) {
        m_rows.emplace_back(i, *grid);
        grid->setRowMinimumHeight(i + 1, RowHeight);
    }
    grid->setRowStretch(RowCount + 1, 1);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeLegend() {
    QGroupBox* frame = parts::Frame("Legend", "LegendFrame");
    auto* line = new QHBoxLayout(frame);
    line->setSpacing(4 * look::Grid);
    QLabel* address = parts::Label("Address Pointer", "AddressPointerLegend");
    look::SetInk(*address, look::DarkBlueInk);
    QLabel* read = parts::Label("Read Data", "ReadDataLegend");
    look::SetInk(*read, look::GreenInk);
    line->addWidget(address);
    line->addWidget(read);
    line->addWidget(parts::Label("Write Data", "WriteDataLegend"));
    return frame;
}

QGroupBox* EEPROMComFRM::MakeCommands() {
    QGroupBox* frame = parts::Frame("Command", "CommandFrame");
    m_autoReadCHK =
        parts::Button("AutoRead is Off", "AutoReadCHK",
                      tr("Reads all rows again and again, ten times a second"), "Alt+U");
    m_autoReadCHK->setCheckable(true);
    m_readAllCMD = parts::Button("Read All", "ReadAllCMD", tr("Reads all sixteen rows"), "Alt+R");
    m_writeALLCMD =
        parts::Button("Write All", "WriteALLCMD", tr("Writes all sixteen rows"), "Alt+W");
    m_rwAllProgress = new QProgressBar;
    m_rwAllProgress->setObjectName("RWAllProgress");
    m_rwAllProgress->setAccessibleName(tr("Rows done"));
    m_rwAllProgress->setRange(0, RowCount - 1);
    m_rwAllProgress->setValue(0);
    m_rwAllProgress->setTextVisible(false);
    m_rwAllProgress->setFixedHeight(2 * look::Grid);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(m_readAllCMD, 0, 0);
    grid->addWidget(m_writeALLCMD, 0, 1);
    grid->addWidget(m_autoReadCHK, 1, 0, 1, 2);
    grid->addWidget(m_rwAllProgress, 2, 0, 1, 2);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeEEPROM() {
    QGroupBox* frame = parts::Frame("EEPROM", "EEPROMFrame");
    m_accessEEPROMCHK = CheckBox("Access EEPROM", "AccessEEPROMCHK",
                                 tr("The rows stand for bytes of the EEPROM instead of registers. "
                                    "The EEPROM is reached over the printer port only."),
                                 "Alt+A");
    m_eraseEEPROMCHK =
        CheckBox("Erase EEPROM before writes", "EraseEEPROMCHK",
                 tr("Write All erases the 256 bytes at the high byte first; a single row cannot be "
                    "written then"),
                 "Alt+E");
    m_eepromHighByteCOMBO = new HighByteCombo;
    m_eepromHighByteCOMBO->setToolTip(tr("High address byte of all rows in the EEPROM"));
    QLabel* ramHighByte = parts::NumberLabel("00", "EEPROMHighByteLBL", look::BodyInk);
    ramHighByte->setAccessibleName(tr("High byte of registers"));

    auto* grid = new QGridLayout(frame);
    grid->addWidget(m_accessEEPROMCHK, 0, 0, 1, 2);
    grid->addWidget(m_eraseEEPROMCHK, 1, 0, 1, 2);
    grid->addWidget(parts::Label(tr("High byte"), "HighByteHeading"), 2, 0);
    grid->addWidget(m_eepromHighByteCOMBO, 2, 1);
    grid->addWidget(parts::Heading(tr("High byte of registers"), "RAMHighByteHeading"), 3, 0);
    grid->addWidget(ramHighByte, 3, 1);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeFills() {
    QGroupBox* frame = parts::Frame("Auto Fill", "AutoFillFrame");
    m_addPTRFillCMD = parts::Button("Address Ptr Fill", "ADDPTRFillCMD",
                                    tr("Counts the addresses up from the first row's"), "Alt+P");
    m_readDataFillCMD = parts::Button("Read Data Fill", "ReadDataFillCMD",
                                      tr("Takes the bytes read as the bytes to write"), "Alt+D");
    m_randomFillCMD = parts::Button("Random Data Fill", "RandomFillCMD",
                                    tr("Fills the bytes to write at random"), "Alt+N");
    auto* column = new QVBoxLayout(frame);
    column->addWidget(m_addPTRFillCMD);
    column->addWidget(m_readDataFillCMD);
    column->addWidget(m_randomFillCMD);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeNotes() {
    QGroupBox* frame = parts::Frame("Notes", "NotesFrame");
    auto* column = new QVBoxLayout(frame);
    column->addWidget(parts::Note("When auto-erasing EEPROM, all pages associated with the "
                                  "selected high byte will be erased. ",
                                  "Label4", NotesWidth));
    return frame;
}

QGroupBox* EEPROMComFRM::MakeClose() {
    QGroupBox* frame = parts::Frame({}, "CloseFrame");
    frame->setFlat(true);
    m_closeCMD = parts::Button("Close Current", "CloseCMD", tr("Closes this window"), "Alt+C");
    m_closeAllCMD = parts::Button("Close All", "CloseAllCMD",
                                  tr("Closes every \"Register Access\" window"), "Alt+L");
    auto* line = new QHBoxLayout(frame);
    line->addWidget(m_closeCMD);
    line->addWidget(m_closeAllCMD);
    return frame;
}

void EEPROMComFRM::ConnectControls() {
    for (EEPROMRow& row : m_rows) {
        connect(row.ReadByteCMD, &QPushButton::clicked, this, [this, &row] { ReadByte(row); });
        connect(row.WriteByteCMD, &QPushButton::clicked, this, [this, &row] { WriteByte(row); });
    }
    m_autoReadTimer.setObjectName("AutoReadTimer");
    m_autoReadTimer.setInterval(AutoReadInterval);
    connect(&m_autoReadTimer, &QTimer::timeout, this, &EEPROMComFRM::AutoReadTick);
    connect(m_autoReadCHK, &QPushButton::toggled, this, &EEPROMComFRM::AutoRead);
    connect(m_readAllCMD, &QPushButton::clicked, this, &EEPROMComFRM::ReadAll);
    connect(m_writeALLCMD, &QPushButton::clicked, this, &EEPROMComFRM::WriteAll);
    connect(m_accessEEPROMCHK, &QCheckBox::toggled, this, &EEPROMComFRM::AccessEEPROM);
    connect(m_eraseEEPROMCHK, &QCheckBox::toggled, this, &EEPROMComFRM::EraseBeforeWrites);
    connect(m_addPTRFillCMD, &QPushButton::clicked, this, &EEPROMComFRM::AddressFill);
    connect(m_randomFillCMD, &QPushButton::clicked, this, &EEPROMComFRM::RandomFill);
    connect(m_readDataFillCMD, &QPushButton::clicked, this, &EEPROMComFRM::ReadDataFill);
    connect(m_closeCMD, &QPushButton::clicked, this, &EEPROMComFRM::close);
    connect(m_closeAllCMD, &QPushButton::clicked, this, &EEPROMComFRM::CloseAllWanted);
}

} // namespace tqx
