#pragma once

#include <chrono>

namespace tqx {

/// A clock that stands still but where the tour steps it, so that every tour shows the same.
class TourClock {
public:
    std::chrono::nanoseconds Now() const { return m_now; }

    void Step(std::chrono::nanoseconds time) { m_now += time; }

private:
    std::chrono::nanoseconds m_now{0};
};

} // namespace tqx
