#pragma once

#include "link/link_root.h"

#include <cstdint>

namespace tqx {

/// The one record of the transfer at hand. It carries nothing from one event handler to the next.
struct BusCell {
    /// In the form that the active link takes: 8-bit (58h) on the printer port, 7-bit (2Ch) on the
    /// SMBus. 0 until a chip is chosen.
    std::uint8_t SlaveAddress = 0;
    /// I/O base of the chosen printer port, 0 otherwise.
    std::uint16_t PortAddress = 0;
    std::uint8_t RegisterPointer = 0;
    std::uint8_t ReadValue = 0;
    std::uint8_t WriteValue = 0;
    /// 1 the printer port, any other value the SMBus: the opposite of LinkServer::ActiveMedium.
    std::uint8_t ComsMedium = 0;
};

/// Value of BusCell::ComsMedium for the printer port and for the SMBus.
/// @{
inline constexpr std::uint8_t ComsPrinterPort = 1;
inline constexpr std::uint8_t ComsSMBus = 0;

/// @}

/// Single-byte register transfers as BusCell describes them.
///
/// A caller stores RegisterPointer (and WriteValue), calls, and takes ReadValue at once, without
/// yielding to the event loop in between. Errors of the link pass through.
class LinkNewComPort {
public:
    explicit LinkNewComPort(LinkRoot& link);

    /// Reads the register at RegisterPointer into ReadValue.
    void ReadRegister();
    /// Writes WriteValue to the register at RegisterPointer; on the printer port the board's bus is
    /// put on BusCell.PortAddress first.
    void WriteRegister();

    tqx::BusCell BusCell;

private:
    LinkRoot& m_link;
};

/// One read of the register at `address`, narrowed to a byte.
inline std::uint8_t ReadAt(LinkNewComPort& bus, std::int16_t address) {
    bus.BusCell.RegisterPointer = static_cast<std::uint8_t>(address);
    bus.ReadRegister();
    return bus.BusCell.ReadValue;
}

/// One write of `value` to the register at `address`, narrowed to a byte.
inline void WriteAt(LinkNewComPort& bus, std::int16_t address, std::uint8_t value) {
    bus.BusCell.RegisterPointer = static_cast<std::uint8_t>(address);
    bus.BusCell.WriteValue = value;
    bus.WriteRegister();
}

} // namespace tqx
