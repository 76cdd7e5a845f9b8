#include "call_limit.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <unistd.h>

#ifndef sigev_notify_thread_id // older C libraries have the field without its name
#define sigev_notify_thread_id _sigev_un._tid
#endif

namespace tqx {

namespace {

/// A real-time signal, since those have no meaning of their own. The first few are often taken.
int LimitSignal() {
    return SIGRTMIN + 5;
}

void Nothing(int /*signal*/) {}

/// Stays in place to the end of the process, for a signal that is late. Gives 0, or why it failed.
int CatchSignal() {
    struct sigaction action {};

    action.sa_handler = Nothing; // no SA_RESTART: calls are to end
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, LimitSignal());
    if (sigaction(LimitSignal(), &action, nullptr) != 0) {
        return errno;
    }
    return pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

timespec ToTimespec(std::chrono::nanoseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {.tv_sec = seconds.count(), .tv_nsec = (time - seconds).count()};
}

} // namespace

CallLimit::CallLimit(std::chrono::nanoseconds limit) {
    static const int notCaught = CatchSignal();
    m_error = notCaught;
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = LimitSignal();
    event.sigev_notify_thread_id = gettid();
    if (m_error == 0 && timer_create(CLOCK_MONOTONIC, &event, &m_timer) != 0) {
        m_error = errno;
    }
    if (m_error != 0) {
        return;
    }
    constexpr std::chrono::milliseconds again{10};
    // A time of 0 would switch the timer off.
    const itimerspec times{.it_interval = ToTimespec(again),
                           .it_value = ToTimespec(std::max(limit, std::chrono::nanoseconds(1)))};
    timer_settime(m_timer, 0, &times, nullptr);
}

CallLimit::~CallLimit() {
    if (m_error == 0) {
        timer_delete(m_timer);
    }
}

} // namespace tqx
