#include "simulated/gpio_lines.h"

namespace tqx {

bool GPIOLines::Level(int line, GPIOSetup setup) const {
    const auto index = static_cast<std::size_t>(line);
    return setup.Output ? m_active.test(index) == setup.ActiveHigh : m_outside.test(index);
}

void GPIOLines::Drive(int line, GPIOSetup setup, bool level) {
    if (setup.Output) {
        m_active.set(static_cast<std::size_t>(line), level == setup.ActiveHigh);
    }
}

void GPIOLines::SetOutside(int line, bool level) {
    m_outside.set(static_cast<std::size_t>(line), level);
}

void GPIOLines::Reset() {
    m_active.reset();
}

} // namespace tqx
