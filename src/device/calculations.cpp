#include "device/calculations.h"

#include "device/register_addresses.h"

#include <link/link_new_com_port.h>

#include <cmath>

namespace tqx {

double FanCountConvert(double value, std::int16_t divisor) {
    constexpr double TicksPerMinute = 1350000.0;
    constexpr double SpeedCeiling = 10000.0;
    const auto convert = [divisor](double v) { return std::floor(TicksPerMinute / (divisor * v)); };

    if (value == 0.0) {
        value = 1.0;
    }
    if (convert(value) > SpeedCeiling) {
        value = convert(SpeedCeiling);
    }
    return convert(value);
}

Calculations::Calculations(LinkNewComPort& bus)
    : m_bus(bus) {}

std::uint8_t Calculations::ReadDivisorRegister1() {
    return ReadAt(m_bus, reg::FanDivisors0To3);
}

std::uint8_t Calculations::ReadDivisorRegister2() {
    return ReadAt(m_bus, reg::FanDivisors4To7);
}

void Calculations::RefreshFanDivisors() {
    TakeDivisors(ReadDivisorRegister1(), 0);
    TakeDivisors(ReadDivisorRegister2(), 4);
}

void Calculations::TakeDivisors(std::uint8_t fields, std::size_t firstFan) {
    for (std::size_t i = 0; i < 4; ++i) {
        const int code = (fields >> (2 * i)) & 0x03;
        FanDivisors.at(firstFan + i) = *DivisorFromCode(code);
    }
}

} // namespace tqx
