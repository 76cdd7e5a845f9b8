#pragma once

#include <chrono>

namespace tqx {

/// A clock that runs faster than the wall's, so that a minute of the board passes in a few seconds
/// of the tour.
class TourClock {
public:
    static constexpr int Speed = 20;

    std::chrono::nanoseconds Now() const {
        return Speed * (std::chrono::steady_clock::now() - m_start);
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace tqx
