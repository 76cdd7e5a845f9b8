#pragma once

#include "strip_chart/columns.h"

namespace tqx::strip {

struct Range {
    double Low;
    double High;

    double Span() const { return High - Low; }

    bool operator==(const Range&) const = default;
};

/// Which stretch of time and which range of values a chart has on view, and how the user's hand
/// moves them. Times are those of History.
class View {
public:
    static constexpr Time DefaultSpan = 60 * Second;
    static constexpr Time ShortestSpan = Second / 2;
    static constexpr Time LongestSpan = Time{400} * 24 * 3600 * Second;

    /// How many pixel columns the paper has; at least one.
    void ColumnCount(int columns);
    int ColumnCount() const { return m_columnCount; }

    /// The time of the last sample of all: the right edge of a view that follows.
    void Newest(Time newest);

    /// The column numbers on view begin with First.
    strip::Columns Columns() const { return m_columns; }

    Time Begin() const { return m_columns.Begin(m_columns.First); }

    Time End() const { return m_columns.Begin(m_columns.First + m_columnCount); }

    Time Span() const { return m_span; }

    /// Whether new samples move the view.
    bool Following() const { return m_following && !m_frozen; }

    bool Frozen() const { return m_frozen; }

    /// The time of the last sample when the view was frozen.
    Time FrozenAt() const { return m_frozenAt; }

    bool WholeRun() const { return m_wholeRun; }

    /// Whether this is the view that a chart starts with: the last 60 s in the starting range.
    bool Default() const {
        return Following() && !m_wholeRun && m_span == DefaultSpan && m_values == m_inner;
    }

    /// Holds the picture; letting go returns to the newest sample with the same zoom.
    void Freeze(bool frozen);

    /// Back to the view that a chart starts with.
    void Live();

    /// All that there is, with room for a while to come: the columns change only when that is used
    /// up, by an eighth of the run each time.
    void ShowWholeRun();

    /// Makes the time on view `factor` times as long about the point `at`, from 0 (left edge) to 1.
    void ZoomTime(double factor, double at);

    /// Zooms so that the right edge, live or not, stays where it is.
    void ZoomTimeAtEdge(double factor);

    /// Moves the view later by `columns`; one that reaches the newest sample follows again.
    void PanTime(std::int64_t columns);

    /// `inner` is on view until the user zooms; `outer` bounds every zoom.
    void Values(const Range& inner, const Range& outer);
    Range Values() const { return m_values; }

    Range OuterValues() const { return m_outer; }

    /// Makes the range `factor` times as wide about `value`, within the outer range.
    void ZoomValues(double factor, double value);

    /// Shows `low` to `high` with a little room around them, within the outer range.
    void FitValues(double low, double high);

    /// Moves the range up by `by`, within the outer range.
    void PanValues(double by);

private:
    void SetSpan(Time span);
    void Hold(Time begin);
    void Place();
    void SetValues(double low, double span);

    int m_columnCount = 1;
    strip::Columns m_columns;
    Time m_newest = 0;
    Time m_span = DefaultSpan;
    Time m_begin = 0; ///< of a view that does not follow
    bool m_following = true;
    bool m_frozen = false;
    Time m_frozenAt = 0;
    bool m_wholeRun = false;
    Range m_inner{0, 1};
    Range m_outer{0, 1};
    Range m_values{0, 1};
};

} // namespace tqx::strip
