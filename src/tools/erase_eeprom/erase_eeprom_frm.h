#pragma once

#include "eeprom_modes.h"
#include "tool_window.h"
#include "tools/wait.h"

#include <device/eeprom_map.h>

#include <array>
#include <cstdint>

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace tqx {

struct Bench;
class HighByteCombo;

/// The EEPROM erase window: erases any page of a block, or the whole EEPROM.
///
/// While Erase All runs the other erase commands cannot be used, and a close stops it after the
/// page at hand. Errors of the link pass through and leave the window usable.
class EraseEEPROMFRM : public ToolWindow {
    Q_OBJECT

public:
    EraseEEPROMFRM(Bench& bench, const MessageDoor& door, Waiter wait);

protected:
    void AskToStop() override;

private:
    class EraseAllScope;

    void MakeLayout();
    QGroupBox* MakePages();
    QGroupBox* MakeFullErase();

    void ShowHighByte(const QString& highByte);
    void ErasePage(int i);
    void EraseAll();
    void EraseBlock(std::uint8_t high);
    void SetEraseAllRunning(bool running);

    Bench& m_bench;
    EEPROMModes m_modes;
    Waiter m_wait;
    bool m_stopRequested = false;

    HighByteCombo* m_eepromHighByteCOMBO = nullptr;
    std::array<QLabel*, eeprom::PagesInBlock> m_highByteLBL{};
    std::array<QLabel*, eeprom::PagesInBlock> m_lowByteLBL{};
    std::array<QPushButton*, eeprom::PagesInBlock> m_erasePageCMD{};
    QPushButton* m_eraseAllCMD = nullptr;
    QPushButton* m_stopEraseCMD = nullptr;
    QProgressBar* m_totalProgress = nullptr;
    QLabel* m_highByteVaueLBL = nullptr;
    QLabel* m_lowByteValueLBL = nullptr;
    /// What the last command came to; empty while one runs and after one that failed.
    QLabel* m_statusLBL = nullptr;
    QPushButton* m_closeCMD = nullptr;
};

} // namespace tqx
