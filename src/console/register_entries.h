#pragma once

#include <controls/number_entry.h>

#include <QGroupBox>
#include <QLabel>

#include <cstdint>

namespace tqx {

/// `SSPanel37`: the two boxes in which a whole byte is entered, and the byte written last. They are
/// write fields: they show what was entered, not what the register holds.
class RegisterEntries : public QGroupBox {
    Q_OBJECT

public:
    explicit RegisterEntries(QWidget* parent = nullptr);

    /// The byte that went to the register on view last.
    void PreviousValueWritten(std::uint8_t value);
    /// Another register is on view, to which nothing was written yet.
    void NothingWritten();

    NumberEntry& HexTXT() const { return *m_hexTXT; }

    NumberEntry& DecTXT() const { return *m_decTXT; }

private:
    NumberEntry* m_hexTXT;
    NumberEntry* m_decTXT;
    QLabel* m_writtenHex;
    QLabel* m_writtenDec;
};

} // namespace tqx
