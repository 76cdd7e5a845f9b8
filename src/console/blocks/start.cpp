#include "blocks/start.h"

#include "console/high_byte_combo.h"

#include <controls/look.h>

#include <QGridLayout>
#include <QLabel>

namespace tqx {

BlockStart::BlockStart(QWidget* parent)
    : QGroupBox("Start Position:", parent)
    , m_accessEEPROM(new QCheckBox("Access EEPROM"))
    , m_highByte(new HighByteCombo)
    , m_lowByte(new NumberEntry(NumberEntry::Hexadecimal)) {
    m_accessEEPROM->setObjectName("AccessEEPROMCHK");
    m_accessEEPROM->setToolTip("Ticked: blocks go to the EEPROM. Unticked: to the registers");
    m_highByte->setToolTip("High byte of the EEPROM address");
    m_highByte->setEnabled(false);
    m_lowByte->setObjectName("LowByteTXT");
    m_lowByte->setAccessibleName("Low byte of the EEPROM address, or the register");
    m_lowByte->setToolTip("Low byte of the EEPROM address, or the register");
    m_lowByte->Put("0");
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
    m_highByte->setCurrentIndex(0);
}

std::uint8_t BlockStart::HighByte() const {
    return m_highByte->Value();
}

std::uint8_t BlockStart::LowByte() const {
    return static_cast<std::uint8_t>(m_lowByte->Value());
}

} // namespace tqx
