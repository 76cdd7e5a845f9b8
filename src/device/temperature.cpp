#include "device/temperature.h"

#include <link/link_new_com_port.h>

namespace tqx {
namespace {

constexpr std::uint8_t SignBit = 0x80;
constexpr std::uint8_t MagnitudeBits = 0x7F;

} // namespace

Temperature::Temperature(LinkNewComPort& bus)
    : m_bus(bus) {}

std::int16_t Temperature::Value() {
    return RawToDegrees(ReadAt(m_bus, ValueAddressPointer));
}

std::int16_t Temperature::MinLimit() {
    return RawToDegrees(ReadAt(m_bus, MinAddressPointer));
}

void Temperature::MinLimit(std::int16_t degrees) {
    WriteAt(m_bus, MinAddressPointer, DegreesToRaw(degrees));
}

std::int16_t Temperature::MaxLimit() {
    return RawToDegrees(ReadAt(m_bus, MaxAddressPointer));
}

void Temperature::MaxLimit(std::int16_t degrees) {
    WriteAt(m_bus, MaxAddressPointer, DegreesToRaw(degrees));
}

std::int16_t Temperature::RawToDegrees(std::uint8_t raw) {
    const auto magnitude = static_cast<std::int16_t>(raw & MagnitudeBits);
    return (raw & SignBit) != 0 ? static_cast<std::int16_t>(-magnitude) : magnitude;
}

std::uint8_t Temperature::DegreesToRaw(std::int16_t degrees) {
    if (degrees > 255) {
        return MagnitudeBits;
    }
    if (degrees >= 0) {
        return static_cast<std::uint8_t>(degrees);
    }
    return degrees < -128 ? SignBit | MagnitudeBits : static_cast<std::uint8_t>(-degrees | SignBit);
}

} // namespace tqx
