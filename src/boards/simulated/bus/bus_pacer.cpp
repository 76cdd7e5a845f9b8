#include "bus/bus_pacer.h"

#include <algorithm>
#include <cmath>
#include <thread>
#include <utility>

namespace tqx::sim {

namespace {

using namespace std::chrono_literals;

/// The shortest sleep worth asking for.
constexpr BusPacer::Nanoseconds Piece = 200us;

/// The longest oversleep that is made up for; a machine that slept is not raced after.
constexpr BusPacer::Nanoseconds MostCredit = 20ms;

BusPacer::Nanoseconds SteadyNow() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace

BusPacer::BusPacer()
    : BusPacer(SteadyNow, [](Nanoseconds time) { std::this_thread::sleep_for(time); }) {}

BusPacer::BusPacer(Clock clock, Sleep sleep)
    : m_clock(std::move(clock))
    , m_sleep(std::move(sleep)) {}

void BusPacer::Hertz(double hertz) {
    m_bitTime = hertz > 0 ? Nanoseconds{std::llround(1e9 / hertz)} : 0ns;
    m_owed = 0ns;
}

void BusPacer::BitTimes(int count) {
    if (m_bitTime == 0ns || count == 0) {
        return;
    }
    const Nanoseconds now = m_clock();
    // More than one bit time since the last call is an idle bus, which pays for nothing.
    m_owed += m_bitTime * count - std::min(now - m_last, m_bitTime);
    m_last = now;
    if (m_owed >= Piece) {
        SleepOff();
    }
}

void BusPacer::Hold(Nanoseconds time) {
    m_owed += time;
    if (m_owed >= Piece) {
        SleepOff();
    }
}

void BusPacer::SleepOff() {
    const Nanoseconds before = m_clock();
    m_sleep(m_owed);
    m_last = m_clock();
    m_owed = std::max(m_owed - (m_last - before), -MostCredit);
}

} // namespace tqx::sim
