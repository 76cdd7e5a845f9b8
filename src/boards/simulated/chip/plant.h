#pragma once

#include "simulated/chip_input.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

namespace tqx::sim {

/// What surrounds the chip and what it measures: rails with ripple and drift, temperatures that
/// warm up slowly, fans that spin up. The same seed and time give the same value, whatever was
/// asked before.
class Plant {
public:
    explicit Plant(std::uint32_t seed);

    /// The value at `time` after power came on: degrees, revolutions per minute or volts.
    double Value(ChipInput input, std::chrono::nanoseconds time) const;

    /// Holds an input at a value, in the same units, until it is released.
    void Force(ChipInput input, double value);
    void Release(ChipInput input);
    bool IsForced(ChipInput input) const;

private:
    double Noise(ChipInput input, double seconds, double period) const;
    double Rail(ChipInput input, double nominal, double seconds) const;
    double WarmUp(ChipInput input, double rise, double seconds) const;
    double SpinUp(ChipInput input, double nominal, double seconds) const;

    std::uint32_t m_seed;
    std::array<std::optional<double>, ChipInputCount> m_forced;
};

} // namespace tqx::sim
