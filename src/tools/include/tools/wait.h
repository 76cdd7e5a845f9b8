#pragma once

#include <functional>

namespace tqx {

/// The application's timed pause: comes back when `seconds` have passed on the monotonic clock, and
/// serves window messages meanwhile, so that timers and other windows go on.
///
/// A window can be closed in the pause, by its user or with the whole program: who waits looks
/// afterwards whether it is still wanted. Once the application is ending no messages are served
/// any more, but the pause keeps its length.
void Wait(float seconds);

/// Wait, or what stands in for it in a test.
using Waiter = std::function<void(float seconds)>;

} // namespace tqx
