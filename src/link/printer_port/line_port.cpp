#include "link/line_port.h"

#include "link/short_wait.h"

namespace tqx {

void LinePort::LineDelay(std::chrono::nanoseconds time) {
    ShortWait(time);
}

} // namespace tqx
