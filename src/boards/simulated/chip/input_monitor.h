#pragma once

#include "chip/chip_registers.h"
#include "chip/plant.h"

#include <array>
#include <chrono>
#include <cstdint>

namespace tqx::sim {

/// The measuring half of the chip: turns what the plant gives into the bytes of the value
/// registers, and holds them against the limits.
class InputMonitor {
public:
    /// Both must outlive the monitor. The registers hold divisors, offsets, limits and which
    /// function the shared pins have.
    InputMonitor(const Plant& plant, const RegisterBytes& registers);

    void SetTime(std::chrono::nanoseconds time) { m_time = time; }

    /// Keeps the values of this moment, for as long as Config1 says that the chip does not measure.
    void Hold();

    /// The byte of a value register; 00h where no input stands behind it at present.
    std::uint8_t ValueOf(std::uint8_t reg) const;

    /// The bits of a status register that tell of measured inputs.
    std::uint8_t StatusOf(std::uint8_t status) const;

    /// True while a temperature is above its THERM limit.
    bool OverTherm() const;

private:
    bool HasPin(ChipInput input) const;
    std::uint8_t Measure(const InputFacts& facts) const;
    std::uint8_t ByteOf(const InputFacts& facts) const;
    std::uint8_t MeasureTemperature(const InputFacts& facts) const;
    int DivisorOf(ChipInput fan) const;
    bool OutOfLimits(const InputFacts& facts) const;

    const Plant& m_plant;
    const RegisterBytes& m_registers;
    std::chrono::nanoseconds m_time{0};
    std::array<std::uint8_t, ChipInputCount> m_held{};
};

} // namespace tqx::sim
