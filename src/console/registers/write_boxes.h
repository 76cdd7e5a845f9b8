#pragma once

#include <controls/number_entry.h>

#include <QGroupBox>
#include <QLabel>

#include <cstdint>

class QGridLayout;

namespace tqx {

/// `SSPanel37`: the two boxes in which a whole byte is entered, and the byte written last. They are
/// write fields: they show what was entered, not what the register holds.
class WriteBoxes : public QGroupBox {
    Q_OBJECT

public:
    explicit WriteBoxes(QWidget* parent = nullptr);

    /// The byte that went to the register on view last.
    void PreviousValueWritten(std::uint8_t value);
    /// Another register is on view, to which nothing was written yet.
    void NothingWritten();

    /// The row under the boxes, which is left to the old write fields of the bench tests.
    static constexpr int OldWriteFieldsRow = 1;

    QGridLayout& Grid() const { return *m_grid; }

    NumberEntry& Hex() const { return *m_hex; }

    NumberEntry& Dec() const { return *m_dec; }

private:
    QGridLayout* m_grid;
    NumberEntry* m_hex;
    NumberEntry* m_dec;
    QLabel* m_writtenHex;
    QLabel* m_writtenDec;
};

} // namespace tqx
