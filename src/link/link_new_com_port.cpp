#include "link/link_new_com_port.h"

namespace tqx {

LinkNewComPort::LinkNewComPort(LinkRoot& link)
    : m_link(link) {}

void LinkNewComPort::ReadRegister() {
    if (BusCell.ComsMedium == ComsPrinterPort) {
        BusCell.ReadValue = m_link->PrinterPortLink().BoardBus().ReadByte(BusCell.SlaveAddress,
                                                                          BusCell.RegisterPointer);
    } else {
        BusCell.ReadValue =
            m_link->SMBusLink().ReadByte(BusCell.SlaveAddress, BusCell.RegisterPointer);
    }
}

void LinkNewComPort::WriteRegister() {
    if (BusCell.ComsMedium == ComsPrinterPort) {
        BoardBus& board = m_link->PrinterPortLink().BoardBus();
        board.PortAddress(BusCell.PortAddress);
        board.WriteByte(BusCell.SlaveAddress, BusCell.RegisterPointer, BusCell.WriteValue);
    } else {
        m_link->SMBusLink().WriteByte(BusCell.SlaveAddress, BusCell.RegisterPointer,
                                      BusCell.WriteValue);
    }
}

} // namespace tqx
