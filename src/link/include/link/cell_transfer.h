#pragma once

#include "link/link_new_com_port.h"

#include <cstdint>

namespace tqx {

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
