#pragma once

#include <chrono>
#include <ctime>

namespace tqx {

/// Ends a system call of this thread that sleeps for longer than `limit` with EINTR, by a signal
/// that does nothing else. The call must begin and end within this scope.
///
/// The signal repeats: one that comes just before the call would not end it.
class CallLimit {
public:
    explicit CallLimit(std::chrono::nanoseconds limit);
    ~CallLimit();

    CallLimit(const CallLimit&) = delete;
    CallLimit& operator=(const CallLimit&) = delete;

    /// 0, or why there is no limit.
    int Error() const { return m_error; }

private:
    timer_t m_timer{};
    int m_error = 0;
};

} // namespace tqx
