#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>

class QLabel;
class QPushButton;
class QTimer;

namespace tqx {

struct Bench;
struct BusCell;
class BenchTests;
class NumberEntry;
class RegisterBits;
class RegisterReadout;
class RegisterRows;
class WriteBoxes;

/// The register console, `ReadWritePanel`: every named register as a row under its tab, the value
/// and the bits of the one selected, two boxes that write a whole byte to it, and continuous
/// reading. Nothing is read before the user acts. After a failed link call the bits and numbers
/// still show bytes that the chip gave.
class RegisterConsole : public QWidget {
    Q_OBJECT

public:
    explicit RegisterConsole(Bench& bench, QWidget* parent = nullptr);
    ~RegisterConsole() override;

    /// Makes the register at `index`, 0 to 111, the one on view, and reads it once.
    void DisplayRegister(int index);
    /// Whether the register on view takes bit flips and entries; says so where it does not.
    void SetEntryEnabled(bool enabled);
    /// Reads the register at RegisterPointer and shows its address and value.
    void RefreshReadDisplay();
    /// Shows the bits of the byte on show, which during an entry is the byte written.
    void ShowBits();
    /// The pointer has left the rows and the bits: the row goes to rest, the cursor back to normal.
    void move_mouse_away_readwrite();

    void StopContinuousReading();

private:
    QWidget* MakeReadWriteGroup();
    void MakeLayout(QWidget& readWrite);
    void Connect();

    void ClickRow(int row);
    void FlipBit(int bit);
    /// An entry confirmed in a box of `base`; `other` then shows the same number.
    void Enter(const QString& text, int base, NumberEntry& other);
    void WriteEntry(std::uint8_t value);
    void SetPointer(std::uint8_t address);
    void SwitchContinuousReading(bool on);
    void ContinuousRead();
    void ShowAddress();
    void ShowValueRead();

    tqx::BusCell& Cell() const;

    Bench& m_bench;
    RegisterRows* m_rows;
    RegisterReadout* m_readout;
    RegisterBits* m_bits;
    WriteBoxes* m_writeBoxes;
    QPushButton* m_continuous = nullptr;
    QLabel* m_continuousLabel = nullptr;
    /// On view while the register takes no writes: a click on a bit then does nothing.
    QLabel* m_readOnly = nullptr;
    BenchTests* m_benchTests;
    QTimer* m_continuousTimer;

    /// The row clicked last, to which entries go.
    int m_selectedRegister = 0;
    /// The register whose address and bits the panel shows, to which bit flips go.
    std::optional<std::uint8_t> m_registerOnView;
    bool m_showWriteValue = false;
};

} // namespace tqx
