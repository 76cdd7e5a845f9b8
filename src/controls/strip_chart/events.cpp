#include "controls/look.h"
#include "strip_chart/overlay.h"
#include "strip_chart/parts.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

namespace tqx {
namespace {

constexpr int FocusRing = 2; ///< width, along the chart's edge

} // namespace

void StripChart::DrawFrame() {
    Parts& parts = *m_parts;
    parts.NewSamples = false;
    StripModel& model = parts.Model;
    if (model.History.Empty()) {
        return;
    }
    parts.NoteWall();
    model.View.Newest(model.History.Newest());
    if (!isVisible()) {
        return;
    }
    Prepare();
    // One by one: pictures are copied fast only where a single rectangle is painted.
    for (const QRect& rect : parts.Layers.DrawFrame(model)) {
        repaint(rect);
    }
}

/// Brings layout and still picture up to date with what is to be shown.
void StripChart::Prepare() {
    const int buttons = m_parts->Layers.Layout().Buttons.width();
    m_parts->Layers.LayOut(m_parts->Model, size(), devicePixelRatioF(), buttons);
}

void StripChart::Paint(QPainter& painter, const QRegion& region) {
    Prepare();
    m_parts->Layers.DrawFrame(m_parts->Model);
    m_parts->Layers.Paint(painter, region, m_parts->Model);
    PaintStripOverlay(painter, m_parts->Model, m_parts->Layers);
}

QImage StripChart::Picture() {
    const double ratio = devicePixelRatioF();
    QImage picture((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    Paint(painter, rect());
    return picture;
}

void StripChart::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    Paint(painter, event->region());
    const bool touchesEdge = !rect()
                                  .adjusted(FocusRing, FocusRing, -FocusRing, -FocusRing)
                                  .contains(event->region().boundingRect());
    if (hasFocus() && touchesEdge) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(look::Accent), FocusRing));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
}

void StripChart::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_parts->Frames.timerId()) {
        QWidget::timerEvent(event);
    } else if (m_parts->NewSamples) {
        DrawFrame();
    } else {
        m_parts->Frames.stop();
    }
}

void StripChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PlaceButtons();
    update();
}

void StripChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        m_parts->Layers.Invalidate();
        update();
    }
}

void StripChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void StripChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    m_parts->Model.LegendPick = -1;
    update();
}

void StripChart::keyPressEvent(QKeyEvent* event) {
    if (m_parts->Hand.Key(event->key(), event->modifiers())) {
        ShowChange();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void StripChart::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.Press(event->position());
        ShowChange();
    }
}

void StripChart::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) {
        m_parts->Hand.Move(event->position());
        ShowChange();
    }
    const Qt::CursorShape shape = m_parts->Hand.ShapeAt(event->position());
    if (shape == Qt::ArrowCursor) {
        unsetCursor();
    } else {
        setCursor(shape);
    }
}

void StripChart::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.Release(event->position(), event->modifiers());
        ShowChange();
    }
}

void StripChart::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.DoubleClick(event->position());
        ShowChange();
    }
}

void StripChart::wheelEvent(QWheelEvent* event) {
    const bool values = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    // Some desktops turn the wheel sideways while Shift is held.
    const QPoint angle = event->angleDelta();
    const double notches = (angle.y() != 0 ? angle.y() : angle.x()) / 120.0;
    if (m_parts->Hand.Wheel(event->position(), notches, values)) {
        event->accept();
        ShowChange();
    } else {
        event->ignore();
    }
}

void StripChart::contextMenuEvent(QContextMenuEvent* event) {
    const int line = StripLegendAt(m_parts->Layers.Layout(), event->pos());
    if (line >= 0 && !m_parts->Model.Legend(line).isEmpty()) {
        m_parts->Model.LegendPick = line;
        ShowChange();
    }
    QMenu menu(this);
    m_parts->Commands.FillMenu(menu);
    menu.exec(event->globalPos());
}

bool StripChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    auto* help = static_cast<QHelpEvent*>(event);
    const int line = StripLegendAt(m_parts->Layers.Layout(), help->pos());
    if (line >= 0 && !m_parts->Model.Legend(line).isEmpty()) {
        QToolTip::showText(help->globalPos(),
                           tr("Click to hide or show this trace, with Ctrl to show it alone"),
                           this);
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

} // namespace tqx
