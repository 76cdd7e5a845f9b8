#pragma once

#include <controls/number_entry.h>

#include <QCheckBox>
#include <QGroupBox>

#include <cstdint>

namespace tqx {

class HighByteCombo;

/// "Start Position:": where in the chip a block starts.
class BlockStart : public QGroupBox {
    Q_OBJECT

public:
    explicit BlockStart(QWidget* parent = nullptr);

    /// Selects the first of the high bytes.
    void Load();

    /// True: the EEPROM; False: the RAM registers.
    bool AccessEEPROM() const { return m_accessEEPROM->isChecked(); }

    std::uint8_t HighByte() const;
    /// The low byte in the EEPROM, or the register.
    std::uint8_t LowByte() const;

private:
    QCheckBox* m_accessEEPROM;
    HighByteCombo* m_highByte;
    NumberEntry* m_lowByte;
};

} // namespace tqx
