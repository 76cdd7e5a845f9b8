#include "eeprom_modes.h"

#include <device/eeprom_map.h>
#include <device/register_addresses.h>
#include <link/link_new_com_port.h>

#include <utility>

namespace tqx {
namespace {

constexpr int ModeBits = eeprom::ReadBit | eeprom::WriteBit | eeprom::EraseBit;

} // namespace

EEPROMModes::EEPROMModes(LinkNewComPort& bus, MessageDoor door)
    : m_bus(bus)
    , m_door(std::move(door)) {}

void EEPROMModes::SelectReadMode() {
    Write((ReadAt(m_bus, reg::EEPROM3) & ~ModeBits) | eeprom::ReadBit);
}

void EEPROMModes::SelectWriteMode() {
    Write((ReadAndWarn() & ~ModeBits) | eeprom::WriteBit);
}

void EEPROMModes::SelectEraseMode() {
    Write((ReadAndWarn() & ~ModeBits) | eeprom::EraseBit);
}

void EEPROMModes::EndErase() {
    Write(ReadAndWarn() & ~(ModeBits | eeprom::WriteProtectBit));
}

std::uint8_t EEPROMModes::ReadAndWarn() {
    const std::uint8_t value = ReadAt(m_bus, reg::EEPROM3);
    if ((value & eeprom::WriteProtectBit) != 0) {
        m_door("A problem was detected",
               "Can not write to the TQX7716 EEPROM, the write protect bit is set.", 1);
    }
    return value;
}

void EEPROMModes::Write(int value) {
    WriteAt(m_bus, reg::EEPROM3, static_cast<std::uint8_t>(value));
}

} // namespace tqx
