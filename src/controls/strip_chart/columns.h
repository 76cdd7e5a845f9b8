#pragma once

#include "strip_chart/history.h"

#include <span>

namespace tqx::strip {

/// A row of pixel columns, each of which shows the stretch of time from its number times Width.
struct Columns {
    std::int64_t First = 0;
    Time Width = Second;

    Time Begin(std::int64_t column) const { return column * Width; }

    /// The column that shows `time`.
    std::int64_t Of(Time time) const {
        const std::int64_t quotient = time / Width;
        return quotient * Width > time ? quotient - 1 : quotient;
    }
};

/// From where to where a trace reaches within one pixel column; nothing when Low lies above High.
struct Extent {
    float Low = std::numeric_limits<float>::infinity();
    float High = -std::numeric_limits<float>::infinity();

    bool Empty() const { return !(Low <= High); }

    void Take(float value) {
        Low = value < Low ? value : Low;
        High = value > High ? value : High;
    }

    void Take(float low, float high) {
        Low = low < Low ? low : Low;
        High = high > High ? high : High;
    }
};

/// Samples further apart than this are not joined by a line: nothing was recorded between them.
inline constexpr Time LongestJoin = 3 * Second;

/// The level of a trace's history from which columns of `width` are drawn: the widest slots of
/// which a column has at least two; -1 for the raw samples.
int LevelFor(const Trace& trace, Time width);

/// The first column that may look different for samples that came after `time`. A slot belongs to
/// the column in which it begins, so one that still grew at `time` may reach back.
std::int64_t FirstChangedColumn(const Columns& columns, Time time);

/// Where the line through the samples of `trace` runs in the columns from `columns.First` on, one
/// per element of `extents`. Its cost follows from the number of columns, not from the length of
/// the run.
void FindExtents(const Trace& trace, const Columns& columns, std::span<Extent> extents);

} // namespace tqx::strip
