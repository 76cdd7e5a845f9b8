#pragma once

#include "link/link_new_com_port.h"

#include <cstdint>

namespace tqx {

/// Single-byte transfers that take the register as an argument and leave BusCell alone, and the
/// raw access to the printer port of the chosen chip. Errors of the link pass through.
///
/// The transfers go by the link's own ActiveMedium and SlaveAddress, not by BusCell. On a medium
/// that is neither of the two a read gives 0 and a write does nothing.
class ComsPort {
public:
    ComsPort(LinkRoot& link, const BusCell& cell);

    /// Set when the user goes on without a chip; never cleared. While it is True
    /// ReadRegisterByte gives 0 and WriteRegisterByte does nothing.
    bool Skipped = false;

    std::uint8_t ReadRegisterByte(std::uint8_t reg);
    void WriteRegisterByte(std::uint8_t reg, std::uint8_t value);

    /// As BusCell has it. PortOut goes to the port that the board's bus is on.
    std::uint16_t PortAddress() const { return m_cell.PortAddress; }

    void PortOut(std::uint8_t value);
    std::uint8_t PortIn(std::uint16_t port);

private:
    LinkRoot& m_link;
    const BusCell& m_cell;
};

} // namespace tqx
