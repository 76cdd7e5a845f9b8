#pragma once

#include "strip_chart/drawing.h"

#include <QPointF>

namespace tqx::strip {

/// The user's hand on a chart: pointer, wheel and moving keys, turned into changes of what is on
/// view. Positions are in device-independent pixels.
///
/// On the paper a drag pans and a click places the first cursor, with Shift the second; a cursor
/// can be taken hold of. On the legend a click hides or shows a trace, with Ctrl it shows it alone.
class Hand {
public:
    Hand(Model& model, const Layers& layers)
        : m_model(model)
        , m_layers(layers) {}

    void Press(const QPointF& at);
    void Move(const QPointF& at);
    void Release(const QPointF& at, Qt::KeyboardModifiers modifiers);

    /// Back to the newest sample; undoes what the first click of the two did.
    void DoubleClick(const QPointF& at);

    /// Zooms by `notches`, values rather than time when `values`. Whether `at` is a place for it.
    bool Wheel(const QPointF& at, double notches, bool values);

    /// Whether `key` moves anything.
    bool Key(int key, Qt::KeyboardModifiers modifiers);

    /// What the pointer would do at `at`.
    Qt::CursorShape ShapeAt(const QPointF& at) const;

    /// Zooms by `notches` about the middle, time about the newest sample.
    void ZoomTime(double notches);
    void ZoomValues(double notches);

    /// Shows the range that the traces shown reach within the time on view.
    void FitValues();

    /// The trace under the pointer; -1 for none.
    int TraceAt(const QPointF& at) const;

    /// Places a cursor on view, the first ahead of the second; takes off one that stands.
    void ToggleCursor(int cursor);

private:
    enum class Hold { Nothing, Click, Pan, Cursor, Legend };

    int CursorAt(const QPointF& at) const;
    bool OnPaper(const QPointF& at) const;
    std::vector<Extent> ExtentsOf(int variable, int first, int count) const;
    void Pan(const QPointF& at);
    void StepCursor(int columns);
    void StepLegend(int step);
    void PanColumns(double pages);
    void PanValues(double pages);

    Model& m_model;
    const Layers& m_layers;
    Hold m_hold = Hold::Nothing;
    int m_heldCursor = 0;
    int m_pressedLine = -1;
    bool m_pressedPaper = false;
    bool m_panValues = false;
    QPointF m_pressedAt;
    QPointF m_pannedTo;
    Cursors m_cursorsBefore;
};

} // namespace tqx::strip
