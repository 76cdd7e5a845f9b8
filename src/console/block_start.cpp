#include "block_start.h"

#include "console/number_text.h"

#include <controls/look.h>

#include <QGridLayout>
#include <QLabel>

namespace tqx {
namespace {

/// The EEPROM's first and last high byte.
constexpr unsigned FirstHighByte = 0x80;
constexpr unsigned LastHighByte = 0x9F;

} // namespace

BlockStart::BlockStart(QWidget* parent)
    : QGroupBox("Start Position:", parent)
    , m_accessEEPROM(new QCheckBox("Access EEPROM"))
    , m_highByte(new QComboBox)
    , m_lowByte(new NumberEntry(NumberEntry::Hexadecimal)) {
    m_accessEEPROM->setObjectName("AccessEEPROMCHK");
    m_accessEEPROM->setToolTip(tr("Ticked: blocks go to the EEPROM. Unticked: to the registers"));
    m_highByte->setObjectName("EEPROMHighByteCOMBO");
    m_highByte->setAccessibleName(tr("High byte of the EEPROM address"));
    m_highByte->setToolTip(tr("High byte of the EEPROM address"));
    m_highByte->setFont(look::NumbersFont());
    m_highByte->setEnabled(false);
    m_lowByte->setObjectName("LowByteTXT");
    m_lowByte->setAccessibleName(tr("Low byte of the EEPROM address, or the register"));
    m_lowByte->setToolTip(tr("Low byte of the EEPROM address, or the register"));
    m_lowByte->Text("0");
    connect(m_accessEEPROM, &QCheckBox::clicked, m_highByte, &QComboBox::setEnabled);

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid);
    grid->addWidget(m_accessEEPROM, 0, 0, 1, 2);
    grid->addWidget(new QLabel("HighByte"), 1, 0);
    grid->addWidget(m_highByte, 1, 1);
    grid->addWidget(new QLabel("LowByte/RAM:"), 2, 0);
    grid->addWidget(m_lowByte, 2, 1);
}

void BlockStart::Load() {
    m_highByte->clear();
    for (unsigned high = FirstHighByte; high <= LastHighByte; ++high) {
        m_highByte->addItem(HexText(high));
    }
    m_highByte->setCurrentIndex(0);
}

std::uint8_t BlockStart::HighByte() const {
    return ByteOf(m_highByte->currentText(), 16).value_or(FirstHighByte);
}

std::uint8_t BlockStart::LowByte() const {
    return static_cast<std::uint8_t>(m_lowByte->Value());
}

} // namespace tqx
