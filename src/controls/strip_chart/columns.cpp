#include "strip_chart/columns.h"

#include <algorithm>
#include <cmath>

namespace tqx::strip {
namespace {

/// Collects a trace's way through a row of columns from points and stretches in order of time.
class ExtentPen {
public:
    ExtentPen(const Columns& columns, std::span<Extent> extents)
        : m_columns(columns)
        , m_extents(extents)
        , m_boundary(columns.Begin(columns.First)) {}

    /// Draws from the last sample to this one, unless a gap lies between.
    void LineTo(const Sample& sample) {
        if (std::isnan(sample.Value)) {
            m_down = false;
            return;
        }
        if (m_down && sample.Time - m_last.Time <= LongestJoin) {
            Cross(sample);
        } else {
            MoveTo(sample.Time);
        }
        Mark(static_cast<float>(sample.Value));
        m_last = sample;
        m_down = true;
    }

    /// Draws a slot that lies between `begin` and `end`, joined to what came before unless a gap
    /// lies between. A slot wider than half a column fills every column that it touches.
    void Bar(const Slot& slot, Time begin, Time end) {
        if (slot.Gap()) {
            m_down = false;
            return;
        }
        const auto low = static_cast<double>(slot.Low);
        const auto high = static_cast<double>(slot.High);
        LineTo({begin, m_down ? std::clamp(m_last.Value, low, high) : low});
        Mark({slot.Low, slot.High});
        while (end - begin > m_columns.Width / 2 && m_boundary < end && m_column < Count()) {
            Advance();
            Mark({slot.Low, slot.High});
        }
        m_last = {std::min(end, m_boundary) - 1, static_cast<double>(slot.Last)};
        m_down = !std::isnan(slot.Last);
    }

private:
    std::int64_t Count() const { return static_cast<std::int64_t>(m_extents.size()); }

    /// From one sample to the next, through every column between them.
    void Cross(const Sample& to) {
        if (to.Time < m_boundary) {
            return;
        }
        const double slope = (to.Value - m_last.Value) / static_cast<double>(to.Time - m_last.Time);
        while (m_boundary <= to.Time && m_column < Count()) {
            const auto value = static_cast<float>(
                m_last.Value + slope * static_cast<double>(m_boundary - m_last.Time));
            Mark(value);
            Advance();
            Mark(value);
        }
    }

    void MoveTo(Time time) {
        if (time < m_boundary) {
            return;
        }
        m_column = std::min(m_columns.Of(time) - m_columns.First, Count());
        m_boundary = m_columns.Begin(m_columns.First + m_column + 1);
    }

    void Advance() {
        ++m_column;
        m_boundary += m_columns.Width;
    }

    void Mark(float value) {
        if (m_column >= 0 && m_column < Count()) {
            m_extents[static_cast<std::size_t>(m_column)].Take(value);
        }
    }

    void Mark(const Extent& extent) {
        if (m_column >= 0 && m_column < Count()) {
            m_extents[static_cast<std::size_t>(m_column)].Take(extent.Low, extent.High);
        }
    }

    const Columns m_columns;
    const std::span<Extent> m_extents;
    std::int64_t m_column = -1; ///< the one that the pen stands in; -1 is all that lies before
    Time m_boundary;            ///< where that column ends
    Sample m_last{};
    bool m_down = false; ///< whether a line leads on from m_last
};

void DrawSamples(const Trace& trace, Time from, Time until, ExtentPen& pen) {
    const auto& raw = trace.Raw();
    const auto reached = [from](const Sample& sample) { return sample.Time >= from; };
    std::size_t i = raw.FirstWhere(reached);
    i -= i > 0 ? 1 : 0;
    for (; i < raw.Size(); ++i) {
        pen.LineTo(raw[i]);
        if (raw[i].Time >= until) {
            break;
        }
    }
}

/// Until when the open slot of `level` holds what came: a narrower one holds the rest.
Time OpenUntil(const Trace& trace, int level) {
    if (level > 0) {
        return Time{trace.Open(level - 1)->Index} * trace.SlotWidth(level - 1);
    }
    return trace.Raw().Newest().Time + 1;
}

void DrawSlots(const Trace& trace, int level, Time from, Time until, ExtentPen& pen) {
    const auto& closed = trace.Closed(level);
    const Time width = trace.SlotWidth(level);
    const auto reached = [&](const Slot& slot) { return (Time{slot.Index} + 1) * width > from; };
    std::size_t i = closed.FirstWhere(reached);
    i -= i > 0 ? 1 : 0;
    for (; i < closed.Size(); ++i) {
        const Time begin = Time{closed[i].Index} * width;
        if (begin >= until) {
            return;
        }
        pen.Bar(closed[i], begin, begin + width);
    }
    for (int open = level; open >= 0; --open) {
        const Slot* slot = trace.Open(open);
        if (slot == nullptr) {
            continue;
        }
        const Time begin = Time{slot->Index} * trace.SlotWidth(open);
        if (begin < until) {
            pen.Bar(*slot, begin, OpenUntil(trace, open));
        }
    }
}

} // namespace

int LevelFor(const Trace& trace, Time width) {
    int level = -1;
    while (level + 1 < Trace::LevelCount && trace.SlotWidth(level + 1) <= width / 2) {
        ++level;
    }
    return level;
}

std::int64_t FirstChangedColumn(const Columns& columns, Time time) {
    const Time widestSlot = columns.Width / 2;
    return columns.Of(widestSlot < Trace::NarrowestSlot ? time : time - widestSlot);
}

void FindExtents(const Trace& trace, const Columns& columns, std::span<Extent> extents) {
    std::fill(extents.begin(), extents.end(), Extent{});
    const Time begin = columns.Begin(columns.First);
    const Time end = columns.Begin(columns.First + static_cast<std::int64_t>(extents.size()));
    const int finest = LevelFor(trace, columns.Width);
    ExtentPen pen(columns, extents);
    // What the level wanted no longer reaches comes from the wider ones, oldest first.
    for (int level = Trace::LevelCount - 1; level >= finest; --level) {
        const Time from = std::max(begin, trace.CompleteFrom(level));
        const Time until = level == finest ? end : std::min(end, trace.CompleteFrom(level - 1));
        if (from >= until) {
            continue;
        }
        if (level < 0) {
            DrawSamples(trace, from, until, pen);
        } else {
            DrawSlots(trace, level, from, until, pen);
        }
    }
}

} // namespace tqx::strip
