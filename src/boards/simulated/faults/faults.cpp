#include "simulated/faults.h"

namespace tqx {

Faults::Faults(std::uint32_t seed)
    : m_random(seed) {}

void Faults::Every(Fault fault, unsigned nth) {
    Of(fault) = {.Every = nth};
}

void Faults::Chance(Fault fault, double probability) {
    Of(fault) = {.Chance = probability};
}

void Faults::AllOff() {
    m_modes = {};
}

bool Faults::IsOn(Fault fault) const {
    const Mode& mode = m_modes.at(static_cast<std::size_t>(fault));
    return mode.Every != 0 || mode.Chance > 0;
}

bool Faults::Strikes(Fault fault) {
    Mode& mode = Of(fault);
    if (mode.Every != 0) {
        mode.Passed = (mode.Passed + 1) % mode.Every;
        return mode.Passed == 0;
    }
    return mode.Chance > 0 && std::uniform_real_distribution(0.0, 1.0)(m_random) < mode.Chance;
}

} // namespace tqx
