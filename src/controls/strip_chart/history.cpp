#include "strip_chart/history.h"

namespace tqx::strip {

std::array<Trace::Level, Trace::LevelCount> Trace::MakeLevels() {
    std::array<Level, LevelCount> levels;
    int shift = FirstShift;
    for (Level& level : levels) {
        level.Shift = shift;
        shift += ShiftStep;
    }
    return levels;
}

void Trace::Clear() {
    m_newest = std::numeric_limits<Time>::min();
    m_raw.Clear();
    for (Level& level : m_levels) {
        level.IsOpen = false;
        level.Closed.Clear();
    }
}

void Trace::OpenSlot(std::size_t level, std::uint32_t index) {
    CloseSlot(level);
    m_levels[level].Open = Slot{.Index = index};
    m_levels[level].IsOpen = true;
}

void Trace::CloseSlot(std::size_t level) {
    Level& closing = m_levels[level];
    if (!closing.IsOpen) {
        return;
    }
    if (level + 1 < m_levels.size()) {
        const Level& wider = m_levels[level + 1];
        const std::uint32_t index = closing.Open.Index >> (wider.Shift - closing.Shift);
        if (!wider.IsOpen || wider.Open.Index != index) {
            OpenSlot(level + 1, index);
        }
        m_levels[level + 1].Open.Take(closing.Open);
    }
    closing.Closed.Push(closing.Open);
}

Time Trace::CompleteFrom(int level) const {
    if (level < 0) {
        return m_raw.Full() ? m_raw.Oldest().Time : 0;
    }
    const Level& of = At(level);
    return of.Closed.Full() ? Time{of.Closed.Oldest().Index} << of.Shift : 0;
}

std::optional<Reading> Trace::ReadAt(Time time) const {
    const auto later = [time](const Sample& sample) { return sample.Time > time; };
    if (const std::size_t count = m_raw.FirstWhere(later); count > 0) {
        const Sample& sample = m_raw[count - 1];
        return Reading{sample.Time, sample.Value, true};
    }
    for (const Level& level : m_levels) {
        const auto endsLater = [&](const Slot& slot) {
            return (Time{slot.Index} + 1) << level.Shift > time;
        };
        if (const std::size_t count = level.Closed.FirstWhere(endsLater); count > 0) {
            const Slot& slot = level.Closed[count - 1];
            return Reading{((Time{slot.Index} + 1) << level.Shift) - 1,
                           static_cast<double>(slot.Last), false};
        }
    }
    return std::nullopt;
}

} // namespace tqx::strip
