#include "chip/plant.h"

#include <cmath>
#include <numbers>

namespace tqx::sim {

namespace {

/// Degrees of warm-up, revolutions per minute or volts that each input settles at, in the order of
/// ChipInput.
constexpr std::array<double, ChipInputCount> Nominals{
    16,   28,   21,                                                 // rise over ambient
    4400, 3800, 5100,  4800,  3600,  3300, 6200,  5600,             // fans
    3.05, 5.02, -11.9, 12.05, 1.475,                                // rails
    1.25, 1.5,  1.8,   2.5,   0.9,   1.2,  2.048, 1.024, 1.65, 0.6, // Ain0 to Ain9
    3.32, 3.28,
};

constexpr double Ambient = 24;            // degrees
constexpr double WarmUpTime = 90;         // seconds
constexpr double SpinUpTime = 1.5;        // seconds
constexpr double DriftPeriod = 40;        // seconds
constexpr double RipplePeriod = 0.3;      // seconds
constexpr double RailDrift = 0.012;       // of the nominal
constexpr double RailRipple = 0.006;      // of the nominal
constexpr double TemperatureWander = 1.2; // degrees
constexpr double FanWander = 0.02;        // of the nominal

/// A well mixed number for a point of the noise, -1 to 1.
double NoiseAt(std::uint64_t key) {
    key += 0x9E3779B97F4A7C15U;
    key = (key ^ (key >> 30)) * 0xBF58476D1CE4E5B9U;
    key = (key ^ (key >> 27)) * 0x94D049BB133111EBU;
    key ^= key >> 31;
    return static_cast<double>(key >> 11) / static_cast<double>(1ULL << 52) - 1;
}

double Settled(double seconds, double timeConstant) {
    return 1 - std::exp(-seconds / timeConstant);
}

} // namespace

Plant::Plant(std::uint32_t seed)
    : m_seed(seed) {}

double Plant::Value(ChipInput input, std::chrono::nanoseconds time) const {
    const auto index = static_cast<std::size_t>(input);
    if (m_forced.at(index)) {
        return *m_forced.at(index);
    }
    const double seconds = std::chrono::duration<double>(time).count();
    switch (FactsOf(input).Kind) {
    case InputKind::Temperature:
        return WarmUp(input, Nominals.at(index), seconds);
    case InputKind::Fan:
        return SpinUp(input, Nominals.at(index), seconds);
    case InputKind::Voltage:
        break;
    }
    return Rail(input, Nominals.at(index), seconds);
}

void Plant::Force(ChipInput input, double value) {
    m_forced.at(static_cast<std::size_t>(input)) = value;
}

void Plant::Release(ChipInput input) {
    m_forced.at(static_cast<std::size_t>(input)).reset();
}

bool Plant::IsForced(ChipInput input) const {
    return m_forced.at(static_cast<std::size_t>(input)).has_value();
}

/// A random walk without memory: random points one period apart with a smooth line through them.
double Plant::Noise(ChipInput input, double seconds, double period) const {
    const double position = seconds / period;
    const double point = std::floor(position);
    const auto stream = (static_cast<std::uint64_t>(m_seed) << 32) ^
                        (static_cast<std::uint64_t>(input) << 24) ^
                        static_cast<std::uint64_t>(period * 1000) << 40;
    const auto index = static_cast<std::uint64_t>(static_cast<std::int64_t>(point));
    const double share = (1 - std::cos((position - point) * std::numbers::pi)) / 2;
    return NoiseAt(stream + index) * (1 - share) + NoiseAt(stream + index + 1) * share;
}

double Plant::Rail(ChipInput input, double nominal, double seconds) const {
    return nominal * (1 + RailDrift * Noise(input, seconds, DriftPeriod) +
                      RailRipple * Noise(input, seconds, RipplePeriod));
}

double Plant::WarmUp(ChipInput input, double rise, double seconds) const {
    return Ambient + rise * Settled(seconds, WarmUpTime) +
           TemperatureWander * Noise(input, seconds, DriftPeriod);
}

double Plant::SpinUp(ChipInput input, double nominal, double seconds) const {
    return nominal * Settled(seconds, SpinUpTime) *
           (1 + FanWander * Noise(input, seconds, RipplePeriod * 4));
}

} // namespace tqx::sim
