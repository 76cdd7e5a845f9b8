#pragma once

#include <chrono>
#include <functional>

namespace tqx::sim {

/// Lets the transfers of a modelled bus take as long as they would on a real one.
///
/// Bit times are counted, and what they have come to is slept off in pieces that an operating
/// system can keep to: single transfers end early or late by a piece, their average is exact. The
/// time that the program itself spends between two bit times counts as bus time.
class BusPacer {
public:
    using Nanoseconds = std::chrono::nanoseconds;
    using Clock = std::function<Nanoseconds()>;
    using Sleep = std::function<void(Nanoseconds)>;

    /// On the machine's monotonic clock.
    BusPacer();
    BusPacer(Clock clock, Sleep sleep);

    /// Clock rate of the bus; 0 is as fast as possible.
    void Hertz(double hertz);

    void BitTimes(int count);

    /// Holds the bus for a while, at any clock rate.
    void Hold(Nanoseconds time);

private:
    void SleepOff();

    Clock m_clock;
    Sleep m_sleep;
    Nanoseconds m_bitTime{0};
    Nanoseconds m_owed{0};
    Nanoseconds m_last{0};
};

} // namespace tqx::sim
