#pragma once

#include <cstdint>

namespace tqx {

/// What the parts of the control centre share. Which row is picked is told by the colours of the
/// rows and by the two numbers here, and by nothing else.
struct MonitorState {
    /// The row on the gauge, 3 to 31; 0 until the first pick.
    std::int16_t SelectedChannel = 0;
    /// The group on the strip chart, which is the heading row last picked: 0 temperatures,
    /// 1 voltages, 2 fans.
    std::int16_t StripGroup = 0;
    /// The row last under the pointer or last clicked, whose colour the next move restores.
    int HoverRow = 1;
    /// The control centre has been set up once. A moved handle writes no limit before that.
    bool ControlCentreReady = false;
};

} // namespace tqx
