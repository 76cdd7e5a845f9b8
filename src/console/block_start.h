#pragma once

#include <controls/number_entry.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

#include <cstdint>

namespace tqx {

/// "Start Position:": where in the chip a block starts.
class BlockStart : public QGroupBox {
    Q_OBJECT

public:
    explicit BlockStart(QWidget* parent = nullptr);

    /// Fills the list of high bytes and selects its first row.
    void Load();

    /// True: the EEPROM; False: the RAM registers.
    bool AccessEEPROM() const { return m_accessEEPROM->isChecked(); }

    std::uint8_t HighByte() const;
    /// The low byte in the EEPROM, or the register.
    std::uint8_t LowByte() const;

private:
    QCheckBox* m_accessEEPROM;
    QComboBox* m_highByte;
    NumberEntry* m_lowByte;
};

} // namespace tqx
