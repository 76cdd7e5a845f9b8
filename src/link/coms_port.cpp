#include "link/coms_port.h"

namespace tqx {

ComsPort::ComsPort(LinkRoot& link, const BusCell& cell)
    : m_link(link)
    , m_cell(cell) {}

std::uint8_t ComsPort::ReadRegisterByte(std::uint8_t reg) {
    if (Skipped) {
        return 0;
    }
    switch (m_link->ActiveMedium()) {
    case ActivePrinterPort: {
        BoardBus& board = m_link->PrinterPortLink().BoardBus();
        return board.ReadByte(board.SlaveAddress(), reg);
    }
    case ActiveSMBus: {
        SMBusLink& smbus = m_link->SMBusLink();
        return smbus.ReadByte(smbus.SlaveAddress(), reg);
    }
    default:
        return 0;
    }
}

void ComsPort::WriteRegisterByte(std::uint8_t reg, std::uint8_t value) {
    if (Skipped) {
        return;
    }
    switch (m_link->ActiveMedium()) {
    case ActivePrinterPort: {
        BoardBus& board = m_link->PrinterPortLink().BoardBus();
        board.WriteByte(board.SlaveAddress(), reg, value);
        break;
    }
    case ActiveSMBus: {
        SMBusLink& smbus = m_link->SMBusLink();
        smbus.WriteByte(smbus.SlaveAddress(), reg, value);
        break;
    }
    default:
        break;
    }
}

void ComsPort::PortOut(std::uint8_t value) {
    BoardBus& board = m_link->PrinterPortLink().BoardBus();
    board.PortWrite(board.PortAddress(), value);
}

std::uint8_t ComsPort::PortIn(std::uint16_t port) {
    return m_link->PrinterPortLink().BoardBus().PortRead(port);
}

} // namespace tqx
