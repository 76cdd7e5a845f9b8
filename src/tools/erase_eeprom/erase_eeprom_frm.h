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

    HighByteCombo* m_block = nullptr;
    std::array<QLabel*, eeprom::PagesInBlock> m_pageHigh{};
    std::array<QLabel*, eeprom::PagesInBlock> m_pageLow{};
    std::array<QPushButton*, eeprom::PagesInBlock> m_erasePage{};
    QPushButton* m_eraseAll = nullptr;
    QPushButton* m_stop = nullptr;
    QProgressBar* m_progress = nullptr;
    QLabel* m_erasedHigh = nullptr;
    QLabel* m_erasedLow = nullptr;
    /// What the last command came to; empty while one runs and after one that failed.
    QLabel* m_status = nullptr;
    QPushButton* m_close = nullptr;
};

} // namespace tqx
