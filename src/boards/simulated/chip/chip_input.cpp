#include "simulated/chip_input.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tqx::sim {

namespace {

constexpr double FanClock = 1350000; // counts in a minute, divided by the divisor

constexpr InputFacts Temperature(ChipInput input, std::uint8_t value, std::uint8_t high,
                                 std::uint8_t low, std::uint8_t status, std::uint8_t bit) {
    return {input, InputKind::Temperature, value, high, low, status, bit, 0, 0};
}

constexpr InputFacts Fan(int number) {
    const auto n = static_cast<std::uint8_t>(number);
    const auto limit = static_cast<std::uint8_t>(0x60 + n);
    return {FanInput(number),
            InputKind::Fan,
            static_cast<std::uint8_t>(0x38 + n),
            limit,
            limit,
            0x22,
            n,
            0,
            0};
}

constexpr InputFacts Voltage(ChipInput input, std::uint8_t value, std::uint8_t high,
                             std::uint8_t low, std::uint8_t status, std::uint8_t bit, double min,
                             double max) {
    return {input, InputKind::Voltage, value, high, low, status, bit, min, max};
}

} // namespace

constexpr std::array<InputFacts, ChipInputCount> ChipInputs{
    Temperature(ChipInput::IntTemp, 0x1F, 0x68, 0x69, 0x23, 0),
    Temperature(ChipInput::Ext1Temp, 0x28, 0x40, 0x48, 0x20, 0),
    Temperature(ChipInput::Ext2Temp, 0x29, 0x41, 0x49, 0x20, 1),
    Fan(0),
    Fan(1),
    Fan(2),
    Fan(3),
    Fan(4),
    Fan(5),
    Fan(6),
    Fan(7),
    Voltage(ChipInput::VBatt, 0x26, 0x6A, 0x6B, 0x23, 1, 0.016, 3.984),
    Voltage(ChipInput::Plus5V, 0x2C, 0x44, 0x4C, 0x20, 4, 0.026, 6.634),
    Voltage(ChipInput::Minus12V, 0x2F, 0x47, 0x4F, 0x20, 7, -15.92, 2.428),
    Voltage(ChipInput::Plus12V, 0x2E, 0x46, 0x4E, 0x20, 6, 0.062, 15.938),
    Voltage(ChipInput::Vccp, 0x2D, 0x45, 0x4D, 0x20, 5, 0.012, 2.988),
    Voltage(ChipInput::Ain0, 0x30, 0x50, 0x58, 0x21, 0, 0.012, 2.988),
    Voltage(ChipInput::Ain1, 0x31, 0x51, 0x59, 0x21, 1, 0.012, 2.988),
    Voltage(ChipInput::Ain2, 0x32, 0x52, 0x5A, 0x21, 2, 0.012, 2.988),
    Voltage(ChipInput::Ain3, 0x33, 0x53, 0x5B, 0x21, 3, 0.012, 2.988),
    Voltage(ChipInput::Ain4, 0x34, 0x54, 0x5C, 0x21, 4, 0.012, 2.988),
    Voltage(ChipInput::Ain5, 0x35, 0x55, 0x5D, 0x21, 5, 0.012, 2.988),
    Voltage(ChipInput::Ain6, 0x36, 0x56, 0x5E, 0x21, 6, 0.01, 2.49),
    Voltage(ChipInput::Ain7, 0x37, 0x57, 0x5F, 0x21, 7, 0.01, 2.49),
    Voltage(ChipInput::Ain8, 0x27, 0x6C, 0x6D, 0x23, 2, 0.01, 2.49),
    Voltage(ChipInput::Ain9, 0x29, 0x41, 0x49, 0x20, 1, 0.01, 2.49),
    Voltage(ChipInput::Standby3V3, 0x2A, 0x42, 0x4A, 0x20, 2, 0.0172, 4.423),
    Voltage(ChipInput::Main3V3, 0x2B, 0x43, 0x4B, 0x20, 3, 0.0172, 4.423),
};

const InputFacts& FactsOf(ChipInput input) {
    return ChipInputs.at(static_cast<std::size_t>(input));
}

std::uint8_t TemperatureByte(double degrees) {
    const auto whole = static_cast<int>(std::lround(std::clamp(degrees, -127.0, 127.0)));
    return static_cast<std::uint8_t>(whole < 0 ? std::abs(whole) | 0x80 : whole);
}

int DegreesOf(std::uint8_t byte) {
    const int magnitude = byte & 0x7F;
    return (byte & 0x80) != 0 ? -magnitude : magnitude;
}

std::uint8_t FanCount(double rpm, int divisor) {
    if (rpm * divisor * 255 <= FanClock) {
        return 0xFF;
    }
    return static_cast<std::uint8_t>(std::max(1.0, std::round(FanClock / (rpm * divisor))));
}

std::uint8_t VoltageCount(const InputFacts& facts, double volts) {
    const double step = (facts.Max - facts.Min) / 255;
    return static_cast<std::uint8_t>(
        std::lround(std::clamp((volts - facts.Min) / step, 0.0, 255.0)));
}

} // namespace tqx::sim
