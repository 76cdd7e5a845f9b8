#pragma once

#include <chrono>

namespace tqx {

/// Comes back after at least `time`, without giving the thread up: the waits between two line
/// states are far shorter than the shortest sleep of an operating system.
void ShortWait(std::chrono::nanoseconds time);

} // namespace tqx
