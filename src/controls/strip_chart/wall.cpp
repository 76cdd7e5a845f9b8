#include "strip_chart/wall.h"

#include <algorithm>
#include <cstdlib>

namespace tqx {

void StripWall::Note(StripTime time, StripTime wall) {
    const StripTime offset = wall - time;
    if (m_stretches.empty()) {
        m_stretches.push_back({time, offset});
        return;
    }
    if (std::abs(offset - m_stretches.back().Offset) < SmallestJump) {
        return;
    }
    if (m_stretches.size() == MostStretches) {
        m_stretches.erase(m_stretches.begin());
    }
    m_stretches.push_back({time, offset});
}

StripTime StripWall::At(StripTime time) const {
    if (m_stretches.empty()) {
        return time;
    }
    const auto after = std::upper_bound(
        m_stretches.begin() + 1, m_stretches.end(), time,
        [](StripTime moment, const Stretch& stretch) { return moment < stretch.From; });
    return time + std::prev(after)->Offset;
}

} // namespace tqx
