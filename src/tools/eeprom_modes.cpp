#include "tools/eeprom_modes.h"

#include <device/register_addresses.h>
#include <link/cell_transfer.h>

#include <utility>

namespace tqx {
namespace {

/// Bits of "EEPROM 3".
/// @{
constexpr int ReadBit = 0x01;
constexpr int WriteBit = 0x02;
constexpr int EraseBit = 0x04;
constexpr int WriteProtectBit = 0x08;
/// @}

} // namespace

EEPROMModes::EEPROMModes(LinkNewComPort& bus, MessageDoor door)
    : m_bus(bus)
    , m_door(std::move(door)) {}

void EEPROMModes::SelectReadMode() {
    Write((ReadAt(m_bus, reg::EEPROM3) & 0xF9) | ReadBit);
}

void EEPROMModes::SelectWriteMode() {
    Write((ReadAndWarn() & 0xFA) | WriteBit);
}

void EEPROMModes::SelectEraseMode() {
    Write((ReadAndWarn() & 0xFC) | EraseBit);
}

void EEPROMModes::EndErase() {
    Write(ReadAndWarn() & 0xF0);
}

std::uint8_t EEPROMModes::ReadAndWarn() {
    const std::uint8_t value = ReadAt(m_bus, reg::EEPROM3);
    if ((value & WriteProtectBit) != 0) {
        m_door("A problem was detected",
               "Can not write to the TQX7716 EEPROM, the write protect bit is set.", 1);
    }
    return value;
}

void EEPROMModes::Write(int value) {
    WriteAt(m_bus, reg::EEPROM3, static_cast<std::uint8_t>(value));
}

} // namespace tqx
