#pragma once

#include "simulated/chip.h"

#include <bitset>
#include <cstddef>

namespace tqx::sim {

/// How a line is set up: as an output or an input, and which level is the active one.
struct GPIOSetup {
    bool Output = false;
    bool ActiveHigh = false;
};

/// The general-purpose lines: what each output is told to drive, and the level that the outside
/// puts on each input.
class GPIOLines {
public:
    /// The level on the line.
    bool Level(int line, GPIOSetup setup) const {
        return setup.Output ? m_active.test(Index(line)) == setup.ActiveHigh : Outside(line);
    }

    /// Tells an output which level to drive. It is kept as active or not, so that the level turns
    /// over with the polarity. An input takes no notice.
    void Drive(int line, GPIOSetup setup, bool level) {
        if (setup.Output) {
            m_active.set(Index(line), level == setup.ActiveHigh);
        }
    }

    /// Puts a level on the line from outside; an output does not care.
    void SetOutside(int line, bool level) { m_outside.set(Index(line), level); }

    bool Outside(int line) const { return m_outside.test(Index(line)); }

    /// Lets every output go to its inactive level.
    void Reset() { m_active.reset(); }

private:
    static constexpr std::size_t Index(int line) { return static_cast<std::size_t>(line); }

    std::bitset<Chip::GPIOLineCount> m_active;
    std::bitset<Chip::GPIOLineCount> m_outside;
};

} // namespace tqx::sim
