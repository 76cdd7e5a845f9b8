#pragma once

#include "strip_chart/columns.h"

namespace tqx {

struct StripRange {
    double Low;
    double High;

    double Span() const { return High - Low; }

    bool operator==(const StripRange&) const = default;
};

/// Which stretch of time and which range of values a chart has on view, and how the user's hand
/// moves them. Times are those of StripHistory.
class StripView {
public:
    static constexpr StripTime DefaultSpan = 60 * StripSecond;
    static constexpr StripTime ShortestSpan = StripSecond / 2;
    static constexpr StripTime LongestSpan = StripTime{400} * 24 * 3600 * StripSecond;

    /// How many pixel columns the paper has; at least one.
    void ColumnCount(int columns);

    int ColumnCount() const { return m_columnCount; }

    /// The time of the last sample of all: the right edge of a view that follows.
    void Newest(StripTime newest);

    /// The column numbers on view begin with First.
    StripColumns Columns() const { return m_columns; }

    StripTime Begin() const { return m_columns.Begin(m_columns.First); }

    StripTime End() const { return m_columns.Begin(m_columns.First + m_columnCount); }

    StripTime Span() const { return m_span; }

    /// Whether new samples move the view.
    bool Following() const { return m_following && !m_frozen; }

    bool Frozen() const { return m_frozen; }

    bool WholeRun() const { return m_wholeRun; }

    /// Whether this is the view that a chart starts with: the last 60 s in the starting range.
    bool Default() const {
        return Following() && !m_wholeRun && m_span == DefaultSpan && !m_zoomed;
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
    void Values(const StripRange& inner, const StripRange& outer);

    StripRange Values() const { return m_values; }

    StripRange OuterValues() const { return m_outer; }

    bool ValuesZoomed() const { return m_zoomed; }

    /// Makes the range `factor` times as wide about `value`, within the outer range.
    void ZoomValues(double factor, double value);

    /// Moves the range up by `by`, within the outer range.
    void PanValues(double by);

private:
    void SetSpan(StripTime span);
    void Hold(StripTime begin);
    void Place();
    void SetValues(double low, double span);

    int m_columnCount = 1;
    StripColumns m_columns;
    StripTime m_newest = 0;
    StripTime m_span = DefaultSpan;
    StripTime m_begin = 0; ///< of a view that does not follow
    bool m_following = true;
    bool m_frozen = false;
    bool m_wholeRun = false;
    StripRange m_inner{0, 1};
    StripRange m_outer{0, 1};
    StripRange m_values{0, 1};
    bool m_zoomed = false;
};

} // namespace tqx
