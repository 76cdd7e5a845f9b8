#pragma once

#include <bitset>

namespace tqx {

/// How a line is set up: as an output or an input, and which level is the active one.
struct GPIOSetup {
    bool Output = false;
    bool ActiveHigh = false;
};

/// The seventeen general-purpose lines: what each output is told to drive, and the level that
/// the outside puts on each input.
class GPIOLines {
public:
    static constexpr int Count = 17;

    /// The level on the line.
    bool Level(int line, GPIOSetup setup) const;

    /// Tells an output which level to drive. It is kept as active or not, so that the level turns
    /// over with the polarity. An input takes no notice.
    void Drive(int line, GPIOSetup setup, bool level);

    /// Puts a level on the line from outside; an output does not care.
    void SetOutside(int line, bool level);

    bool Outside(int line) const { return m_outside.test(static_cast<std::size_t>(line)); }

    /// Lets every output go to its inactive level.
    void Reset();

private:
    std::bitset<Count> m_active;
    std::bitset<Count> m_outside;
};

} // namespace tqx
