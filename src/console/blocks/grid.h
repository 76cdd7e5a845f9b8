#pragma once

#include <controls/number_entry.h>

#include <QLabel>
#include <QWidget>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

class QGridLayout;
class QPushButton;

namespace tqx {

/// Bytes of the longest block, and columns of the grid.
inline constexpr int GridColumns = 32;

/// The bytes that a hexadecimal text stands for, as data sheets, dumps and programs write them:
/// "00 1A ff", "001AFF", "0x00, 0x1A", "00h 1Ah". Blanks, line ends, commas, colons and
/// semicolons part the bytes; a run of digits is taken in pairs. Nothing when anything else stands
/// in the text, or a run of more than two digits cannot be paired.
std::optional<std::vector<std::uint8_t>> ParseHexBytes(const QString& text);

/// `bytes` with two digits each, `perLine` in a line, parted by blanks.
QString FormatHexBytes(std::span<const std::uint8_t> bytes, int perLine);

/// One byte of the block to write. Text that is pasted or dropped on it may be more than one byte
/// and is handed over whole, in place of going into this box alone.
class BlockByteEntry : public NumberEntry {
    Q_OBJECT

public:
    explicit BlockByteEntry(QWidget* parent = nullptr);

Q_SIGNALS:
    void Pasted(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void PasteClipboard();
};

/// The grid of the block panel: a column for each byte of a block, 1 to 32, with its number, the
/// data read, the running PEC after it and the data to write. It stands in two bands of 16 columns.
class BlockGrid : public QWidget {
    Q_OBJECT

public:
    explicit BlockGrid(QWidget* parent = nullptr);

    /// @name The members of a column, 1 to 32
    /// @{
    QLabel& ReadData(int column) const { return *Of(column).Read; }

    QLabel& PECAfter(int column) const { return *Of(column).Fcs; }

    BlockByteEntry& WriteEntry(int column) const { return *Of(column).Write; }

    /// @}

    /// Shows bytes from column 1 on, and leaves the columns behind them as they are.
    void ShowReading(std::span<const std::uint8_t> bytes);
    void ShowPEC(std::span<const std::uint8_t> trace);
    void ClearReading();
    void ClearPEC();

    void EnableAll();
    /// Enables the reading of columns 1 to `columns` alone.
    void EnableReading(int columns);

    /// The bytes read, as text that can be pasted into the write row again.
    QString ReadingAsText() const;
    /// Fills the write row from `column` on with the bytes of a hexadecimal text.
    void Paste(int column, const QString& text);

Q_SIGNALS:
    /// Pasted text did not go in, or not all of it; `why` is for the user.
    void PasteRefused(const QString& why);

private:
    struct Column {
        QLabel* Number = nullptr;
        QLabel* Read = nullptr;
        QLabel* Fcs = nullptr;
        BlockByteEntry* Write = nullptr;
    };

    Column& Of(int column) { return m_columns[static_cast<std::size_t>(column) - 1]; }

    const Column& Of(int column) const { return m_columns[static_cast<std::size_t>(column) - 1]; }

    QWidget* MakeHeading();
    QWidget* MakeBand(int first);
    void MakeKey(QGridLayout& band, bool named);
    void MakeColumn(QGridLayout& band, int column, int at);
    void CopyReading();

    std::array<Column, GridColumns> m_columns;
    QPushButton* m_copy = nullptr;
};

} // namespace tqx
