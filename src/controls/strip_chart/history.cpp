#include "strip_chart/history.h"

#include <algorithm>
#include <cstdlib>

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
    int shift = FirstShift;
    for (Level& level : m_levels) {
        level.Shift = shift;
        level.IsOpen = false;
        level.Closed.Clear();
        shift += ShiftStep;
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
        if (level + 2 == m_levels.size() && m_levels.back().Closed.Full()) {
            DoubleWidestSlots();
        }
        const Level& wider = m_levels[level + 1];
        const std::uint32_t index = closing.Open.Index >> (wider.Shift - closing.Shift);
        if (!wider.IsOpen || wider.Open.Index != index) {
            OpenSlot(level + 1, index);
        }
        m_levels[level + 1].Open.Take(closing.Open);
    }
    closing.Closed.Push(closing.Open);
}

void Trace::DoubleWidestSlots() {
    Level& widest = m_levels.back();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < widest.Closed.Size(); ++i) {
        Slot slot = widest.Closed[i];
        slot.Index /= 2;
        if (kept > 0 && widest.Closed[kept - 1].Index == slot.Index) {
            widest.Closed[kept - 1].Take(slot);
        } else {
            widest.Closed[kept++] = slot;
        }
    }
    widest.Closed.Truncate(kept);
    widest.Open.Index /= 2;
    ++widest.Shift;
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

void Wall::Note(Time time, Time wall) {
    const Time offset = wall - time;
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

Time Wall::At(Time time) const {
    if (m_stretches.empty()) {
        return time;
    }
    const auto after =
        std::upper_bound(m_stretches.begin() + 1, m_stretches.end(), time,
                         [](Time moment, const Stretch& stretch) { return moment < stretch.From; });
    return time + std::prev(after)->Offset;
}

} // namespace tqx::strip
