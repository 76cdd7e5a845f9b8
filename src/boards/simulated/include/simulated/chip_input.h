#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tqx::sim {

/// What the chip can measure. Ext2Temp and Ain8, Ain9 share pins.
enum class ChipInput : std::uint8_t {
    IntTemp,
    Ext1Temp,
    Ext2Temp,
    Fan0,
    Fan1,
    Fan2,
    Fan3,
    Fan4,
    Fan5,
    Fan6,
    Fan7,
    VBatt,
    Plus5V,
    Minus12V,
    Plus12V,
    Vccp,
    Ain0,
    Ain1,
    Ain2,
    Ain3,
    Ain4,
    Ain5,
    Ain6,
    Ain7,
    Ain8,
    Ain9,
    Standby3V3,
    Main3V3,
};

inline constexpr std::size_t ChipInputCount = 28;

enum class InputKind : std::uint8_t { Temperature, Fan, Voltage };

/// Where an input stands in the chip and how its byte comes about.
struct InputFacts {
    ChipInput Input;
    InputKind Kind;
    std::uint8_t Value;
    std::uint8_t HighLimit;
    /// A fan has one limit only, which stands here and in HighLimit.
    std::uint8_t LowLimit;
    std::uint8_t Status;
    std::uint8_t StatusBit;
    /// Volts at the counts 0 and 255; 0 for the other kinds.
    double Min;
    double Max;
};

/// The facts of every input, in the order of ChipInput.
extern const std::array<InputFacts, ChipInputCount> ChipInputs;

const InputFacts& FactsOf(ChipInput input);

/// The fan 0 to 7 as an input.
constexpr ChipInput FanInput(int number) {
    return static_cast<ChipInput>(static_cast<int>(ChipInput::Fan0) + number);
}

/// Whole degrees in the chip's sign and magnitude, held at -127 and 127.
std::uint8_t TemperatureByte(double degrees);

/// Degrees of a byte in sign and magnitude.
int DegreesOf(std::uint8_t byte);

/// Tachometer count of a fan at `rpm` with a divisor of 1, 2, 4 or 8: FFh for a fan that stands
/// or is too slow to count.
std::uint8_t FanCount(double rpm, int divisor);

/// Count of a voltage on the input's own scale.
std::uint8_t VoltageCount(const InputFacts& facts, double volts);

} // namespace tqx::sim
