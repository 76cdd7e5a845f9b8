#include "strip_chart/columns.h"

#include <algorithm>
#include <cmath>

namespace tqx {
namespace {

/// Collects a trace's way through a row of columns from points and stretches in order of time.
class ExtentPen {
public:
    ExtentPen(const StripColumns& columns, std::span<StripExtent> extents)
        : m_columns(columns)
        , m_extents(extents)
        , m_boundary(columns.Begin(columns.First)) {}

    /// Draws from the last sample to this one, unless a gap lies between.
    void LineTo(const StripSample& sample) {
        if (std::isnan(sample.Value)) {
            m_down = false;
            return;
        }
        if (m_down && sample.Time - m_last.Time <= StripLongestJoin) {
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
    void Bar(const StripSlot& slot, StripTime begin, StripTime end) {
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
    void Cross(const StripSample& to) {
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

    void MoveTo(StripTime time) {
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

    void Mark(const StripExtent& extent) {
        if (m_column >= 0 && m_column < Count()) {
            m_extents[static_cast<std::size_t>(m_column)].Take(extent.Low, extent.High);
        }
    }

    const StripColumns m_columns;
    const std::span<StripExtent> m_extents;
    std::int64_t m_column = -1; ///< the one that the pen stands in; -1 is all that lies before
    StripTime m_boundary;       ///< where that column ends
    StripSample m_last{};
    bool m_down = false; ///< whether a line leads on from m_last
};

void DrawSamples(const StripTrace& trace, StripTime from, StripTime until, ExtentPen& pen) {
    const auto& raw = trace.Raw();
    const auto reached = [from](const StripSample& sample) { return sample.Time >= from; };
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
StripTime OpenUntil(const StripTrace& trace, int level) {
    if (level > 0) {
        return StripTime{trace.Open(level - 1)->Index} * trace.SlotWidth(level - 1);
    }
    return trace.Raw().Newest().Time + 1;
}

void DrawSlots(const StripTrace& trace, int level, StripTime from, StripTime until,
               ExtentPen& pen) {
    const auto& closed = trace.Closed(level);
    const StripTime width = trace.SlotWidth(level);
    const auto reached = [&](const StripSlot& slot) {
        return (StripTime{slot.Index} + 1) * width > from;
    };
    std::size_t i = closed.FirstWhere(reached);
    i -= i > 0 ? 1 : 0;
    for (; i < closed.Size(); ++i) {
        const StripTime begin = StripTime{closed[i].Index} * width;
        if (begin >= until) {
            return;
        }
        pen.Bar(closed[i], begin, begin + width);
    }
    for (int open = level; open >= 0; --open) {
        const StripSlot* slot = trace.Open(open);
        if (slot == nullptr) {
            continue;
        }
        const StripTime begin = StripTime{slot->Index} * trace.SlotWidth(open);
        if (begin < until) {
            pen.Bar(*slot, begin, OpenUntil(trace, open));
        }
    }
}

} // namespace

int StripLevelFor(const StripTrace& trace, StripTime width) {
    int level = -1;
    while (level + 1 < StripTrace::LevelCount && trace.SlotWidth(level + 1) <= width / 2) {
        ++level;
    }
    return level;
}

std::int64_t FirstChangedColumn(const StripColumns& columns, StripTime time) {
    const StripTime widestSlot = columns.Width / 2;
    return columns.Of(widestSlot < StripTrace::NarrowestSlot ? time : time - widestSlot);
}

void FindExtents(const StripTrace& trace, const StripColumns& columns,
                 std::span<StripExtent> extents) {
    std::fill(extents.begin(), extents.end(), StripExtent{});
    const StripTime begin = columns.Begin(columns.First);
    const StripTime end = columns.Begin(columns.First + static_cast<std::int64_t>(extents.size()));
    const int finest = StripLevelFor(trace, columns.Width);
    ExtentPen pen(columns, extents);
    // What the level wanted no longer reaches comes from the wider ones, oldest first.
    for (int level = StripTrace::LevelCount - 1; level >= finest; --level) {
        const StripTime from = std::max(begin, trace.CompleteFrom(level));
        const StripTime until =
            level == finest ? end : std::min(end, trace.CompleteFrom(level - 1));
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

} // namespace tqx
