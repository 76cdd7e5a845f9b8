#include "strip_chart/view.h"

#include <algorithm>
#include <cmath>

namespace tqx::strip {

void View::ColumnCount(int columns) {
    m_columnCount = std::max(columns, 1);
    SetSpan(m_span);
    Place();
}

void View::Newest(Time newest) {
    m_newest = newest;
    if (Following()) {
        Place();
    }
}

void View::Freeze(bool frozen) {
    if (frozen) {
        m_frozenAt = m_frozen ? m_frozenAt : m_newest;
        m_begin = Begin();
    }
    m_following = m_following || !frozen;
    m_frozen = frozen;
    Place();
}

void View::Live() {
    m_following = true;
    m_frozen = false;
    m_wholeRun = false;
    m_values = m_inner;
    SetSpan(DefaultSpan);
    Place();
}

void View::ShowWholeRun() {
    m_following = true;
    m_frozen = false;
    m_wholeRun = true;
    SetSpan(DefaultSpan);
    Place();
}

void View::ZoomTime(double factor, double at) {
    const Time begin = Begin();
    const auto fixed = begin + static_cast<Time>(at * static_cast<double>(End() - begin));
    m_wholeRun = false;
    const double longest = static_cast<double>(LongestSpan);
    SetSpan(std::llround(std::min(static_cast<double>(m_span) * factor, longest)));
    Hold(fixed - static_cast<Time>(at * static_cast<double>(m_span)));
}

void View::ZoomTimeAtEdge(double factor) {
    const bool wasFollowing = Following() && !m_wholeRun;
    ZoomTime(factor, 1.0);
    m_following = m_following || wasFollowing;
    Place();
}

void View::PanTime(std::int64_t columns) {
    if (columns == 0) {
        return;
    }
    m_wholeRun = false;
    Hold(Begin() + columns * m_columns.Width);
}

void View::SetSpan(Time span) {
    m_span = std::clamp(span, ShortestSpan, LongestSpan);
    m_columns.Width = std::max<Time>(m_span / m_columnCount, 1);
}

/// Stands the left edge at `begin`. A view that shows the newest sample follows, unless it is
/// frozen; one earlier than the first sample or later than the last would show nothing.
void View::Hold(Time begin) {
    const Time latest = m_newest - m_span;
    m_begin = std::clamp(begin, std::min(-m_span / 2, latest), std::max(latest, -m_span / 2));
    m_following = m_begin >= latest - m_columns.Width && !m_frozen;
    Place();
}

void View::Place() {
    if (m_wholeRun && Following()) {
        m_columns.First = 0;
        if (m_columns.Of(m_newest) >= m_columnCount) {
            SetSpan(m_newest + m_newest / 8);
        }
    } else if (Following()) {
        m_columns.First = m_columns.Of(m_newest) - m_columnCount + 1;
    } else {
        m_columns.First = m_columns.Of(m_begin);
    }
}

void View::Values(const Range& inner, const Range& outer) {
    m_inner = inner;
    if (!(inner.Low < inner.High)) {
        m_inner.High = inner.Low + 1;
    }
    m_outer = {std::min(outer.Low, m_inner.Low), std::max(outer.High, m_inner.High)};
    m_values = m_inner;
}

void View::ZoomValues(double factor, double value) {
    const double span = std::clamp(m_values.Span() * factor, m_outer.Span() / 1000, m_outer.Span());
    const double below = (value - m_values.Low) / m_values.Span();
    SetValues(value - below * span, span);
}

void View::FitValues(double low, double high) {
    const double span = std::clamp((high - low) * 1.1, m_outer.Span() / 1000, m_outer.Span());
    SetValues((low + high - span) / 2, span);
}

void View::PanValues(double by) {
    if (by != 0) {
        SetValues(m_values.Low + by, m_values.Span());
    }
}

void View::SetValues(double low, double span) {
    const double lowest = std::clamp(low, m_outer.Low, m_outer.High - span);
    m_values = {lowest, std::min(lowest + span, m_outer.High)};
}

} // namespace tqx::strip
