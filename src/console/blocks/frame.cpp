#include "blocks/frame.h"

#include "blocks/grid.h"

#include <controls/look.h>
#include <controls/number_text.h>

#include <QGridLayout>

namespace tqx {
namespace {

/// The columns: what the byte is, the byte, the PEC after it.
enum FrameColumn { CaptionColumn, ByteColumn, PECColumn };

} // namespace

BlockFrame::BlockFrame(QWidget* parent)
    : QFrame(parent)
    , m_usePEC(new QCheckBox("Use PEC")) {
    m_usePEC->setObjectName("UsePECCHK");
    m_usePEC->setToolTip("Use a packet error code in block transfers");
    connect(m_usePEC, &QCheckBox::clicked, this, &BlockFrame::UsePECClicked);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(2 * look::Grid, 0, 2 * look::Grid, 0);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid);
    grid->setColumnStretch(CaptionColumn, 1);
    grid->setColumnMinimumWidth(PECColumn, 11 * look::Grid);
    auto* heading = new QLabel("PEC");
    heading->setAlignment(Qt::AlignCenter);
    look::SetInk(*heading, look::QuietInk);
    grid->addWidget(m_usePEC, 0, CaptionColumn, 1, 2);
    grid->addWidget(heading, 0, PECColumn);

    m_slaveAddress = AddByte(*grid, 1, "Device Address:", "SlaveAddrTXT", "AA");
    m_deviceAddressPEC = AddPEC(*grid, 1, "DeviceAddressFcsLBL");
    m_command = AddByte(*grid, 2, "Command:", "AddPTRTXT", "00");
    m_commandPEC = AddPEC(*grid, 2, "AddrPtrFcsLBL");
    m_byteCount = AddByte(*grid, 3, "Byte Count:", "ByteCountTXT", HexText(GridColumns));
    m_byteCountPEC = AddPEC(*grid, 3, "ByteCountFcsLBL");
    grid->addWidget(new QLabel("Final PEC:"), 4, CaptionColumn);
    m_finalPEC = AddPEC(*grid, 4, "FinalPECLBL");
    m_finalPEC->setMinimumHeight(m_byteCount->sizeHint().height());

    for (NumberEntry* shown : {m_slaveAddress, m_command}) {
        shown->setEnabled(false);
        QPalette palette = shown->palette();
        palette.setColor(QPalette::Disabled, QPalette::Text, QColor(look::QuietInk));
        shown->setPalette(palette);
    }
    m_slaveAddress->setToolTip("The chip's address on the bus");
    m_command->setToolTip("A0 for a block write, A1 for a block read");
    m_byteCount->setToolTip("How many bytes to write, 1 to 20 in hexadecimal");
    connect(m_byteCount, &NumberEntry::EntryConfirmed, this, &BlockFrame::ByteCountEntered);
}

NumberEntry* BlockFrame::AddByte(QGridLayout& grid, int row, const QString& caption,
                                 const QString& name, const QString& text) {
    auto* entry = new NumberEntry(NumberEntry::Hexadecimal);
    entry->setObjectName(name);
    entry->setAccessibleName(caption.chopped(1));
    entry->setAlignment(Qt::AlignCenter);
    entry->Put(text);
    grid.addWidget(new QLabel(caption), row, CaptionColumn);
    grid.addWidget(entry, row, ByteColumn);
    return entry;
}

QLabel* BlockFrame::AddPEC(QGridLayout& grid, int row, const QString& name) {
    auto* label = new QLabel(NoValue);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setFont(look::NumbersFont(look::Size::Section));
    look::MakeDisplay(*label);
    grid.addWidget(label, row, PECColumn);
    return label;
}

void BlockFrame::SlaveAddress(std::uint8_t address) {
    m_slaveAddress->Value(address);
}

void BlockFrame::Command(std::uint8_t command) {
    m_command->Value(command);
}

void BlockFrame::DeviceAddressPEC(std::uint8_t pec) {
    m_deviceAddressPEC->setText(HexText(pec));
}

void BlockFrame::CommandPEC(std::uint8_t pec) {
    m_commandPEC->setText(HexText(pec));
}

void BlockFrame::ByteCountPEC(std::uint8_t pec) {
    m_byteCountPEC->setText(HexText(pec));
}

void BlockFrame::FinalPEC(std::uint8_t pec) {
    m_finalPEC->setText(HexText(pec));
}

void BlockFrame::ClearPEC() {
    for (QLabel* label : {m_finalPEC, m_deviceAddressPEC, m_commandPEC, m_byteCountPEC}) {
        label->setText(NoValue);
    }
}

} // namespace tqx
