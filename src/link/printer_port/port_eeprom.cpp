#include "printer_port/port_eeprom.h"

namespace tqx {

PortEEPROM::PortEEPROM(BoardLines& board, BoardBus& bus, BoardOptions& options)
    : m_board(board)
    , m_bus(bus)
    , m_options(options)
    , m_coms(board.Lines) {}

std::uint8_t PortEEPROM::ReadEEPROM(std::uint8_t high, std::uint8_t low) {
    Address(high, low);
    return m_board.Transfer([this] { return m_coms.ReadEEPROM(); });
}

void PortEEPROM::WriteEEPROM(std::uint8_t high, std::uint8_t low, std::uint8_t value) {
    Address(high, low);
    m_coms.Data(value);
    m_board.Transfer([this] { m_coms.WriteEEPROM(); });
}

std::uint8_t PortEEPROM::ErasePage(std::uint8_t high, std::uint8_t low, std::uint8_t zero) {
    WriteEEPROM(high, low, zero);
    return 0;
}

void PortEEPROM::Address(std::uint8_t high, std::uint8_t low) {
    m_coms.SlaveAddress(m_bus.SlaveAddress());
    m_coms.HighByte(high);
    m_coms.LowByte(low);
}

} // namespace tqx
