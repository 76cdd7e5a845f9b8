#pragma once

#include <array>
#include <cstdint>
#include <random>

namespace tqx {

/// What can go wrong on the simulated board, and what counts as one occasion for it.
enum class Fault : std::uint8_t {
    /// The chip does not acknowledge its address. Occasion: a transfer to it.
    NoAnswer,
    /// A line is held at a level. Occasion: a port access, or a call on the SMBus.
    /// @{
    DataStuckLow,
    DataStuckHigh,
    ClockStuckLow,
    /// @}
    /// The PEC arrives damaged at whoever checks it. Occasion: a PEC byte.
    WrongPEC,
    /// The chip announces 31 bytes in place of 32. Occasion: a block read.
    ShortCount,
    /// The bus drags. Occasion: a port access, or a call on the SMBus.
    SlowBus,
    /// A byte on its way into the EEPROM, or the erasing of a page, has no effect. Occasion: such a
    /// byte.
    LostEEPROMWrite,
    /// The call raises LinkError. Occasion: a port access, or a call on the SMBus.
    LinkFails,
};

inline constexpr std::size_t FaultCount = 9;

/// Which faults are switched on and when they strike. The same seed and settings strike at the
/// same occasions.
class Faults {
public:
    explicit Faults(std::uint32_t seed);

    /// Strikes at each occasion.
    void Always(Fault fault) { Every(fault, 1); }

    /// Strikes at each `nth` occasion, counted from now on; 0 never.
    void Every(Fault fault, unsigned nth);
    /// Strikes with a probability from 0 to 1.
    void Chance(Fault fault, double probability);

    void Off(Fault fault) { Every(fault, 0); }

    void AllOff();

    bool IsOn(Fault fault) const;

    /// The `nth` that was set last; 0 when the fault is off or left to chance.
    unsigned Every(Fault fault) const { return m_modes.at(static_cast<std::size_t>(fault)).Every; }

    /// An occasion for the fault has come: True when it strikes.
    bool Strikes(Fault fault);

private:
    struct Mode {
        unsigned Every = 0;
        unsigned Passed = 0;
        double Chance = 0;
    };

    Mode& Of(Fault fault) { return m_modes.at(static_cast<std::size_t>(fault)); }

    std::array<Mode, FaultCount> m_modes;
    std::mt19937 m_random;
};

} // namespace tqx
