#pragma once

#include <controls/combos.h>

#include <cstdint>

namespace tqx {

/// The list of the EEPROM's high address bytes, "80" to "9F", the first one selected.
class HighByteCombo : public HandCombo {
    Q_OBJECT

public:
    explicit HighByteCombo(QWidget* parent = nullptr);

    /// The selected high byte.
    std::uint8_t Value() const;
};

} // namespace tqx
