#include "strip_chart/hand.h"

#include <algorithm>
#include <cmath>

namespace tqx::strip {
namespace {

constexpr double Reach = 5;       ///< how near to a cursor the pointer takes hold of it
constexpr double TraceReach = 4;  ///< how near to a trace the pointer asks for its name
constexpr double DragStart = 4;   ///< a press that moves no further is a click
constexpr double ValueStart = 16; ///< a hand that drags along time does not shift values as well
constexpr double NotchFactor = 1.25;
constexpr int LargeStep = 10;

} // namespace

bool Hand::OnPaper(const QPointF& at) const {
    return QRectF(m_layers.Layout().Paper).contains(at);
}

int Hand::CursorAt(const QPointF& at) const {
    for (const int cursor : {m_model.Cursors.Active, 1 - m_model.Cursors.Active}) {
        const auto moment = m_model.Cursors.At[static_cast<std::size_t>(cursor)];
        if (moment && std::abs(m_layers.XOf(m_model, *moment) - at.x()) <= Reach) {
            return cursor;
        }
    }
    return -1;
}

void Hand::Press(const QPointF& at) {
    m_pressedAt = m_pannedTo = at;
    m_cursorsBefore = m_model.Cursors;
    m_panValues = false;
    m_pressedLine = LegendAt(m_layers.Layout(), at.toPoint());
    m_pressedPaper = OnPaper(at);
    m_hold = Hold::Nothing;
    if (m_pressedLine >= 0) {
        m_hold = Hold::Legend;
    } else if (m_pressedPaper) {
        m_heldCursor = CursorAt(at);
        m_hold = m_heldCursor >= 0 ? Hold::Cursor : Hold::Click;
        m_model.Cursors.Active = m_heldCursor >= 0 ? m_heldCursor : m_model.Cursors.Active;
    }
}

void Hand::Move(const QPointF& at) {
    if (m_hold == Hold::Cursor) {
        const QRect& paper = m_layers.Layout().Paper;
        const double x = std::clamp<double>(at.x(), paper.left(), paper.right());
        m_model.Cursors.Place(m_heldCursor, m_layers.TimeAt(m_model, x));
    }
    const QPointF moved = at - m_pressedAt;
    if (m_hold == Hold::Click && std::hypot(moved.x(), moved.y()) >= DragStart) {
        m_hold = Hold::Pan;
    }
    if (m_hold == Hold::Pan) {
        Pan(at);
    }
}

void Hand::Pan(const QPointF& at) {
    const double ratio = m_layers.PixelRatio();
    const auto columns = std::llround((m_pannedTo.x() - at.x()) * ratio);
    m_model.View.PanTime(columns);
    m_pannedTo.rx() -= static_cast<double>(columns) / ratio;
    if (!m_panValues && std::abs(at.y() - m_pressedAt.y()) >= ValueStart) {
        m_panValues = true;
        m_pannedTo.setY(at.y());
    }
    if (m_panValues) {
        m_model.View.PanValues(m_layers.ValueAt(m_model, m_pannedTo.y()) -
                               m_layers.ValueAt(m_model, at.y()));
        m_pannedTo.setY(at.y());
    }
}

void Hand::Release(const QPointF& at, Qt::KeyboardModifiers modifiers) {
    const Hold held = std::exchange(m_hold, Hold::Nothing);
    if (held == Hold::Click) {
        const int cursor = modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0;
        m_model.Cursors.Place(cursor, m_layers.TimeAt(m_model, at.x()));
    }
    const bool sameLine = LegendAt(m_layers.Layout(), at.toPoint()) == m_pressedLine;
    if (held != Hold::Legend || !sameLine || m_model.Legend(m_pressedLine).isEmpty()) {
        return;
    }
    if (modifiers.testFlag(Qt::ControlModifier)) {
        m_model.ShowOnly(m_pressedLine);
    } else {
        m_model.ToggleTrace(m_pressedLine);
    }
}

void Hand::DoubleClick(const QPointF& at) {
    // The first click may have placed a cursor, and its read-out made the paper narrower.
    if (m_pressedPaper) {
        m_model.Cursors = m_cursorsBefore;
        m_model.View.Live();
        m_hold = Hold::Nothing;
    } else {
        Press(at);
    }
}

bool Hand::Wheel(const QPointF& at, double notches, bool values) {
    const QRect& paper = m_layers.Layout().Paper;
    const bool onLabels = m_layers.Layout().ValueLabels.contains(at.toPoint());
    if (!OnPaper(at) && !onLabels) {
        return false;
    }
    const double factor = std::pow(NotchFactor, -notches);
    if (values || onLabels) {
        m_model.View.ZoomValues(factor, m_layers.ValueAt(m_model, at.y()));
    } else {
        m_model.View.ZoomTime(factor, (at.x() - paper.left()) / paper.width());
    }
    return true;
}

void Hand::ZoomTime(double notches) {
    m_model.View.ZoomTimeAtEdge(std::pow(NotchFactor, -notches));
}

void Hand::ZoomValues(double notches) {
    const Range values = m_model.View.Values();
    m_model.View.ZoomValues(std::pow(NotchFactor, -notches), (values.Low + values.High) / 2);
}

std::vector<Extent> Hand::ExtentsOf(int variable, int first, int count) const {
    std::vector<Extent> extents(static_cast<std::size_t>(std::max(count, 0)));
    Columns columns = m_model.View.Columns();
    columns.First += first;
    FindExtents(m_model.History.Trace(variable), columns, extents);
    return extents;
}

void Hand::FitValues() {
    Extent all;
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (!m_model.Ink(variable).Shown) {
            continue;
        }
        for (const Extent& extent : ExtentsOf(variable, 0, m_model.View.ColumnCount())) {
            all.Take(extent.Low, extent.High);
        }
    }
    if (!all.Empty() && std::isfinite(all.Low) && std::isfinite(all.High)) {
        m_model.View.FitValues(static_cast<double>(all.Low), static_cast<double>(all.High));
    }
}

int Hand::TraceAt(const QPointF& at) const {
    if (!OnPaper(at)) {
        return -1;
    }
    const double ratio = m_layers.PixelRatio();
    const int reach = qRound(TraceReach * ratio);
    const int column = qRound((at.x() - m_layers.Layout().Paper.left()) * ratio);
    int nearest = -1;
    double least = TraceReach;
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (!m_model.Ink(variable).Shown) {
            continue;
        }
        for (const Extent& extent : ExtentsOf(variable, column - reach, 2 * reach + 1)) {
            if (extent.Empty()) {
                continue;
            }
            const double top = m_layers.YOf(m_model, static_cast<double>(extent.High));
            const double bottom = m_layers.YOf(m_model, static_cast<double>(extent.Low));
            const double away = std::max({top - at.y(), at.y() - bottom, 0.0});
            if (away < least) {
                least = away;
                nearest = variable;
            }
        }
    }
    return nearest;
}

void Hand::ToggleCursor(int cursor) {
    auto& at = m_model.Cursors.At[static_cast<std::size_t>(cursor)];
    if (at) {
        at.reset();
        m_model.Cursors.Active = 1 - cursor;
        return;
    }
    const View& view = m_model.View;
    const Time shown = std::min(view.End(), m_model.History.Newest());
    const Time begin = std::clamp<Time>(view.Begin(), 0, shown);
    m_model.Cursors.Place(cursor, begin + (shown - begin) * (cursor + 1) / 3);
}

bool Hand::Key(int key, Qt::KeyboardModifiers modifiers) {
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const int step = modifiers.testFlag(Qt::ShiftModifier) ? LargeStep : 1;
    const auto& active = m_model.Cursors.At[static_cast<std::size_t>(m_model.Cursors.Active)];
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int direction = key == Qt::Key_Left ? -1 : 1;
        if (active && !control) {
            StepCursor(direction * step);
        } else {
            PanColumns(0.1 * direction);
        }
        return true;
    }
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        PanColumns(key == Qt::Key_PageUp ? -0.9 : 0.9);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int direction = key == Qt::Key_Up ? 1 : -1;
        if (control) {
            PanValues(0.1 * direction);
        } else {
            StepLegend(-direction);
        }
        return true;
    }
    default:
        return false;
    }
}

/// Moves the cursor in hand; the view follows it across its edges.
void Hand::StepCursor(int columns) {
    const Columns on = m_model.View.Columns();
    const Time from = *m_model.Cursors.At[static_cast<std::size_t>(m_model.Cursors.Active)];
    const Time to =
        std::clamp<Time>(from + columns * on.Width, 0, std::max<Time>(m_model.History.Newest(), 0));
    m_model.Cursors.Place(m_model.Cursors.Active, to);
    const std::int64_t column = on.Of(to) - on.First;
    const std::int64_t last = m_model.View.ColumnCount() - 1;
    if (column < 0 || column > last) {
        m_model.View.PanTime(column < 0 ? column : column - last);
    }
}

/// Moves on to the next legend line that has a text.
void Hand::StepLegend(int step) {
    int& pick = m_model.LegendPick;
    if (pick < 0) {
        pick = step > 0 ? -1 : LegendLines;
    }
    for (int tried = 0; tried < LegendLines; ++tried) {
        pick = (pick + step + LegendLines) % LegendLines;
        if (!m_model.Legend(pick).isEmpty()) {
            return;
        }
    }
    pick = -1;
}

void Hand::PanColumns(double pages) {
    m_model.View.PanTime(std::llround(pages * m_model.View.ColumnCount()));
}

void Hand::PanValues(double pages) {
    m_model.View.PanValues(pages * m_model.View.Values().Span());
}

Qt::CursorShape Hand::ShapeAt(const QPointF& at) const {
    if (m_hold == Hold::Pan) {
        return Qt::ClosedHandCursor;
    }
    if (m_hold == Hold::Cursor || (OnPaper(at) && CursorAt(at) >= 0)) {
        return Qt::SplitHCursor;
    }
    const int line = LegendAt(m_layers.Layout(), at.toPoint());
    return line >= 0 && !m_model.Legend(line).isEmpty() ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

} // namespace tqx::strip
