#pragma once

#include "link/link_server.h"
#include "link/port_link.h"
#include "printer_port/board_lines.h"
#include "printer_port/eeprom_coms.h"

#include <cstdint>

namespace tqx {

/// EEPROMLink on the lines of a printer port, for the chip that the board's bus is set to.
class PortEEPROM : public EEPROMLink {
public:
    PortEEPROM(BoardLines& board, BoardBus& bus, BoardOptions& options);

    std::uint8_t ReadEEPROM(std::uint8_t high, std::uint8_t low) override;
    void WriteEEPROM(std::uint8_t high, std::uint8_t low, std::uint8_t value) override;
    /// A write like any other; the chip takes it for an erase while register 13h says so.
    std::uint8_t ErasePage(std::uint8_t high, std::uint8_t low, std::uint8_t zero) override;

    void EEPROMWait(bool wait) override { m_options.EEPROMWait = wait; }

    void EEPROMDelay(std::int16_t delay) override { m_options.EEPROMDelay = delay; }

private:
    void Address(std::uint8_t high, std::uint8_t low);

    BoardLines& m_board;
    BoardBus& m_bus;
    BoardOptions& m_options;
    EEPROMComs m_coms;
};

} // namespace tqx
