#include "console/high_byte_combo.h"

#include <controls/look.h>
#include <controls/number_text.h>
#include <device/eeprom_map.h>

namespace tqx {

HighByteCombo::HighByteCombo(QWidget* parent)
    : HandCombo(parent) {
    setObjectName("EEPROMHighByteCOMBO");
    setAccessibleName("EEPROM high byte");
    setFont(look::NumbersFont());
    for (int high = eeprom::FirstHighByte; high <= eeprom::LastHighByte; ++high) {
        addItem(HexText(static_cast<unsigned>(high)));
    }
    setMaxVisibleItems(16);
}

std::uint8_t HighByteCombo::Value() const {
    return ByteOf(currentText(), 16).value_or(eeprom::FirstHighByte);
}

} // namespace tqx
