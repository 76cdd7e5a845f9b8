#pragma once

#include "eeprom_com/eeprom_row.h"
#include "eeprom_modes.h"
#include "tool_window.h"
#include "tools/wait.h"

#include <console/random_fill.h>

#include <QPointer>
#include <QTimer>

#include <vector>

class QCheckBox;
class QGroupBox;
class QProgressBar;
class QPushButton;

namespace tqx {

struct Bench;
class HighByteCombo;

/// The EEPROM communications window: sixteen rows of raw byte access to the chip's registers or
/// to its EEPROM, and commands that act on all rows at once.
///
/// Nothing touches the bus until the user acts. A failed link call leaves the window usable;
/// AutoRead is switched off by one, so that it is told once.
class EEPROMComFRM : public ToolWindow {
    Q_OBJECT

public:
    static constexpr int RowCount = 16;

    EEPROMComFRM(Bench& bench, const MessageDoor& door, Waiter wait, const QString& caption);

    /// On: selects read mode in EEPROM access, then reads all rows every 100 ms. Off: stops that.
    void SetAutoRead(bool on);

    /// Erases the four pages of the selected block. Yields; comes back early when the window is
    /// closed meanwhile.
    void EraseHighByte();

    /// Between the two no control of the window can be used.
    /// @{
    void EnterBusy();
    void LeaveBusy();
    /// @}

Q_SIGNALS:
    /// Every window whose caption begins with "Register Access" is to close.
    void CloseAllWanted();

protected:
    void AskToStop() override;

private:
    void MakeLayout();
    QGroupBox* MakeRows();
    QGroupBox* MakeLegend();
    QGroupBox* MakeCommands();
    QGroupBox* MakeEEPROM();
    QGroupBox* MakeFills();
    QGroupBox* MakeNotes();
    QGroupBox* MakeClose();

    auto Busy();
    void ReadByte(EEPROMRow& row);
    void ReadAll();
    void AutoRead(bool on);
    void AutoReadTick();
    void WriteByte(const EEPROMRow& row);
    void WriteAll();
    void WriteAllEEPROM();
    void WriteAllRAM();

    void AccessEEPROM(bool on);
    void EraseBeforeWrites(bool on);
    void AddressFill();
    void RandomFill();
    void ReadDataFill();

    void ReadRow(EEPROMRow& row);
    /// Of a row that can be written.
    void WriteRow(const EEPROMRow& row);

    Bench& m_bench;
    EEPROMModes m_modes;
    Waiter m_wait;
    UnseededRandom m_random;
    QPointer<QWidget> m_focusBeforeBusy;

    bool m_eepromAccess = false;
    bool m_eraseBeforeWrite = false;
    bool m_autoReadWasOn = false;
    QTimer m_autoReadTimer{this};

    std::vector<EEPROMRow> m_rows;
    QGroupBox* m_rowsFrame = nullptr;
    QGroupBox* m_commandFrame = nullptr;
    QGroupBox* m_eepromFrame = nullptr;
    QGroupBox* m_autoFillFrame = nullptr;
    QGroupBox* m_closeFrame = nullptr;
    QPushButton* m_autoRead = nullptr;
    QProgressBar* m_progress = nullptr;
    QCheckBox* m_access = nullptr;
    QCheckBox* m_erase = nullptr;
    HighByteCombo* m_highByte = nullptr;
};

} // namespace tqx
