#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tqx::sim {

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
    /// The chip announces 31 bytes instead of 32. Occasion: a block read.
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

/// Which faults are switched on and when they strike.
class Faults {
public:
    /// Strikes at each occasion.
    void Always(Fault fault) { Every(fault, 1); }

    /// Strikes at each `nth` occasion, counted from now on; 0 never.
    void Every(Fault fault, unsigned nth) { Of(fault) = {.Every = nth}; }

    void Off(Fault fault) { Every(fault, 0); }

    void AllOff() { m_modes = {}; }

    /// The `nth` that was set last; 0 when the fault is off.
    unsigned Every(Fault fault) const { return m_modes.at(static_cast<std::size_t>(fault)).Every; }

    /// An occasion for the fault has come: True when it strikes.
    bool Strikes(Fault fault) {
        Mode& mode = Of(fault);
        if (mode.Every == 0) {
            return false;
        }
        mode.Passed = (mode.Passed + 1) % mode.Every;
        return mode.Passed == 0;
    }

private:
    struct Mode {
        unsigned Every = 0;
        unsigned Passed = 0;
    };

    Mode& Of(Fault fault) { return m_modes.at(static_cast<std::size_t>(fault)); }

    std::array<Mode, FaultCount> m_modes;
};

} // namespace tqx::sim
