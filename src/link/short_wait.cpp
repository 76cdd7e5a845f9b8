#include "link/short_wait.h"

namespace tqx {

void ShortWait(std::chrono::nanoseconds time) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + time;
    while (Clock::now() < end) {
    }
}

} // namespace tqx
