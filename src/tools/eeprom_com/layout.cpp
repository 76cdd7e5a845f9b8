#include "eeprom_com/eeprom_com_frm.h"

#include <console/high_byte_combo.h>
#include <controls/factories.h>
#include <controls/look.h>
#include <device/bench.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

// What stands where in the EEPROM communications window, and what each control sets off.
namespace tqx {
namespace {

constexpr int RowHeight = 9 * look::Grid;
constexpr int NotesWidth = 220;

} // namespace

void EEPROMComFRM::MakeLayout() {
    m_rowsFrame = MakeRows();
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
    layout->addWidget(m_rowsFrame);
    layout->addLayout(groups);
}

QGroupBox* EEPROMComFRM::MakeRows() {
    QGroupBox* frame = kit::Frame("RWFrame", "Rows");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(0);
    grid->addWidget(kit::Heading("AddressHeading", "Address"), 0, 1, Qt::AlignRight);
    grid->addWidget(kit::Heading("ReadHeading", "Read"), 0, 2, Qt::AlignRight);
    grid->addWidget(kit::Heading("WriteHeading", "Write"), 0, 5, Qt::AlignRight);
    m_rows.reserve(RowCount);
    for (int i = 0; i < RowCount; ++i) {
        EEPROMRow& row = m_rows.emplace_back(i, *grid);
        connect(row.ReadButton, &QPushButton::clicked, this,
                OnLink(m_bench.Failures, [this, &row] { ReadByte(row); }));
        connect(row.WriteButton, &QPushButton::clicked, this,
                OnLink(m_bench.Failures, [this, &row] { WriteByte(row); }));
        grid->setRowMinimumHeight(i + 1, RowHeight);
    }
    grid->setRowStretch(RowCount + 1, 1);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeLegend() {
    QGroupBox* frame = kit::Frame("LegendFrame", "Legend");
    auto* line = new QHBoxLayout(frame);
    line->setSpacing(4 * look::Grid);
    QLabel* address = kit::Label("AddressPointerLegend", "Address Pointer");
    look::SetInk(*address, look::DarkBlueInk);
    QLabel* read = kit::Label("ReadDataLegend", "Read Data");
    look::SetInk(*read, look::GreenInk);
    line->addWidget(address);
    line->addWidget(read);
    line->addWidget(kit::Label("WriteDataLegend", "Write Data"));
    return frame;
}

QGroupBox* EEPROMComFRM::MakeCommands() {
    QGroupBox* frame = kit::Frame("CommandFrame", "Command");
    m_autoRead = kit::Button("AutoReadCHK", "AutoRead is Off",
                             "Reads all rows again and again, ten times a second", "Alt+U");
    m_autoRead->setCheckable(true);
    connect(m_autoRead, &QPushButton::toggled, this,
            OnLink(m_bench.Failures, [this](bool on) { AutoRead(on); }));
    QPushButton* readAll = kit::Button("ReadAllCMD", "Read All", "Reads all sixteen rows", "Alt+R");
    connect(readAll, &QPushButton::clicked, this, OnLink(m_bench.Failures, [this] { ReadAll(); }));
    QPushButton* writeAll =
        kit::Button("WriteALLCMD", "Write All", "Writes all sixteen rows", "Alt+W");
    connect(writeAll, &QPushButton::clicked, this,
            OnLink(m_bench.Failures, [this] { WriteAll(); }));
    m_progress = kit::ProgressLine("RWAllProgress", "Rows done", RowCount - 1);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(readAll, 0, 0);
    grid->addWidget(writeAll, 0, 1);
    grid->addWidget(m_autoRead, 1, 0, 1, 2);
    grid->addWidget(m_progress, 2, 0, 1, 2);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeEEPROM() {
    QGroupBox* frame = kit::Frame("EEPROMFrame", "EEPROM");
    m_access = kit::CheckBox("AccessEEPROMCHK", "Access EEPROM",
                             "The rows are bytes of the EEPROM instead of registers. "
                             "The EEPROM is reached over the printer port only.",
                             "Alt+A");
    m_erase = kit::CheckBox(
        "EraseEEPROMCHK", "Erase EEPROM before writes",
        "Write All erases the 256 bytes at the high byte first; a single row cannot be "
        "written then",
        "Alt+E");
    connect(m_access, &QCheckBox::toggled, this, &EEPROMComFRM::AccessEEPROM);
    connect(m_erase, &QCheckBox::toggled, this, &EEPROMComFRM::EraseBeforeWrites);
    m_highByte = new HighByteCombo;
    m_highByte->setToolTip("High address byte of all rows in the EEPROM");
    QLabel* ramHighByte = kit::NumberLabel("EEPROMHighByteLBL", "00", look::BodyInk);
    ramHighByte->setAccessibleName("High byte of registers");

    auto* grid = new QGridLayout(frame);
    grid->addWidget(m_access, 0, 0, 1, 2);
    grid->addWidget(m_erase, 1, 0, 1, 2);
    grid->addWidget(kit::Label("HighByteHeading", "High byte"), 2, 0);
    grid->addWidget(m_highByte, 2, 1);
    grid->addWidget(kit::Heading("RAMHighByteHeading", "High byte of registers"), 3, 0);
    grid->addWidget(ramHighByte, 3, 1);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeFills() {
    QGroupBox* frame = kit::Frame("AutoFillFrame", "Auto Fill");
    QPushButton* addresses = kit::Button("ADDPTRFillCMD", "Address Ptr Fill",
                                         "Counts the addresses up from the first row's", "Alt+P");
    connect(addresses, &QPushButton::clicked, this, &EEPROMComFRM::AddressFill);
    QPushButton* readData = kit::Button("ReadDataFillCMD", "Read Data Fill",
                                        "Copies the bytes read to the bytes to write", "Alt+D");
    connect(readData, &QPushButton::clicked, this, &EEPROMComFRM::ReadDataFill);
    QPushButton* random = kit::Button("RandomFillCMD", "Random Data Fill",
                                      "Fills the bytes to write from a fixed sequence", "Alt+N");
    connect(random, &QPushButton::clicked, this, &EEPROMComFRM::RandomFill);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(addresses);
    column->addWidget(readData);
    column->addWidget(random);
    return frame;
}

QGroupBox* EEPROMComFRM::MakeNotes() {
    QGroupBox* frame = kit::Frame("NotesFrame", "Notes");
    auto* column = new QVBoxLayout(frame);
    column->addWidget(kit::Text("Label4",
                                "When auto-erasing EEPROM, all pages associated with the "
                                "selected high byte will be erased. ",
                                NotesWidth));
    return frame;
}

QGroupBox* EEPROMComFRM::MakeClose() {
    QGroupBox* frame = kit::Frame("CloseFrame", {});
    frame->setFlat(true);
    QPushButton* close = kit::Button("CloseCMD", "Close Current", "Closes this window", "Alt+C");
    connect(close, &QPushButton::clicked, this, &EEPROMComFRM::close);
    QPushButton* closeAll =
        kit::Button("CloseAllCMD", "Close All", "Closes every \"Register Access\" window", "Alt+L");
    connect(closeAll, &QPushButton::clicked, this, &EEPROMComFRM::CloseAllWanted);
    auto* line = new QHBoxLayout(frame);
    line->addWidget(close);
    line->addWidget(closeAll);
    return frame;
}

} // namespace tqx
