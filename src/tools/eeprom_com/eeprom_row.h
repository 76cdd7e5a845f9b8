#pragma once

#include <cstdint>
#include <optional>

class QGridLayout;
class QLabel;
class QPushButton;

namespace tqx {

class NumberEntry;

/// The controls of one row of the EEPROM communications window: an address, the byte read from it
/// and the byte to write to it. The widgets belong to the window.
///
/// An address or a byte that is none is marked, and its tooltip says why the row sends nothing.
class EEPROMRow {
public:
    /// Makes row `index`, 0 to 15, at line `index` + 1 of `grid`, under headings.
    EEPROMRow(int index, QGridLayout& grid);

    /// The address or the byte to write; nothing when the text is no byte.
    /// @{
    std::optional<std::uint8_t> Address() const;
    std::optional<std::uint8_t> WriteData() const;

    /// @}

    /// Both are bytes.
    bool CanBeWritten() const { return Address() && WriteData(); }

    NumberEntry* AddressBox;
    QLabel* ReadOut;
    QPushButton* ReadButton;
    NumberEntry* DataBox;
    QPushButton* WriteButton;
};

} // namespace tqx
