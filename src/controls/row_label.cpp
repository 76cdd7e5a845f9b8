#include "controls/row_label.h"

#include "controls/accessible_control.h"
#include "controls/look.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <limits>

namespace tqx {
namespace {

constexpr int MarkWidth = 3;
constexpr int TextLeft = 3 * look::Grid;
constexpr int TextRight = 2 * look::Grid;

QColor InkOf(RowColour colour) {
    switch (colour) {
    case RowColour::Plain:
        return look::RowPlain;
    case RowColour::Hovered:
        return look::RowHovered;
    case RowColour::Selected:
        return look::RowSelected;
    case RowColour::SelectedAway:
        return look::RowSelectedAway;
    }
    return look::RowPlain;
}

/// A row to a screen reader: an item of a list that can be picked.
class AccessibleRow : public QAccessibleWidget {
public:
    explicit AccessibleRow(RowLabel& row)
        : QAccessibleWidget(&row, QAccessible::ListItem)
        , m_row(row) {}

    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? m_row.text() : own;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = m_row.IsSelected();
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString& action) override {
        if (action != pressAction()) {
            QAccessibleWidget::doAction(action);
            return;
        }
        Q_EMIT m_row.MouseMoved();
        m_row.click();
    }

private:
    RowLabel& m_row;
};

/// How far `to` lies from `from` for someone who presses the arrow `key`; nothing that lies the
/// other way, and a step aside costs more than a step along.
int ArrowDistance(int key, QPoint from, QPoint to) {
    const QPoint step = to - from;
    const bool upright = key == Qt::Key_Up || key == Qt::Key_Down;
    const int along = upright ? step.y() : step.x();
    const int aside = upright ? step.x() : step.y();
    const bool forward = key == Qt::Key_Down || key == Qt::Key_Right;
    if (forward ? along <= 0 : along >= 0) {
        return std::numeric_limits<int>::max();
    }
    return qAbs(along) + 4 * qAbs(aside);
}

/// The row on the same display that the arrow `key` leads to; null at the edge.
RowLabel* Neighbour(const RowLabel& row, int key) {
    RowLabel* nearest = nullptr;
    int shortest = std::numeric_limits<int>::max();
    const auto siblings = row.parentWidget()->findChildren<RowLabel*>(Qt::FindDirectChildrenOnly);
    for (RowLabel* sibling : siblings) {
        const int distance =
            ArrowDistance(key, row.geometry().center(), sibling->geometry().center());
        if (distance < shortest && !sibling->isHidden() && sibling->isEnabled()) {
            nearest = sibling;
            shortest = distance;
        }
    }
    return nearest;
}

} // namespace

RowLabel::RowLabel(const QString& caption, QWidget* parent)
    : QAbstractButton(parent) {
    DescribeToScreenReaders<RowLabel, AccessibleRow>();
    setText(caption);
    setFont(look::NumbersFont());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void RowLabel::ForeColor(RowColour colour) {
    if (colour == m_colour) {
        return;
    }
    const bool wasSelected = IsSelected();
    m_colour = colour;
    update();
    if (wasSelected != IsSelected()) {
        TellScreenReaders(*this,
                          IsSelected() ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    }
}

bool RowLabel::IsSelected() const {
    return m_colour == RowColour::Selected || m_colour == RowColour::SelectedAway;
}

QSize RowLabel::sizeHint() const {
    const QFontMetricsF metrics(font());
    const int caption = qCeil(metrics.horizontalAdvance(text())); // rounded down it is elided
    return {TextLeft + caption + TextRight, qCeil(metrics.height()) + look::Grid};
}

QSize RowLabel::minimumSizeHint() const {
    return sizeHint();
}

void RowLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(look::Display));
    const QColor ink = isEnabled() ? InkOf(m_colour) : QColor(look::LampDark);
    if (IsSelected()) {
        painter.fillRect(look::Grid, look::Grid, MarkWidth, height() - 2 * look::Grid, ink);
    }
    const QRect textArea = rect().adjusted(TextLeft, 0, -TextRight, 0);
    painter.setPen(ink);
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, textArea.width()));
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(look::Accent), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), 2, 2);
    }
}

void RowLabel::enterEvent(QEnterEvent*) {
    Q_EMIT MouseMoved();
}

void RowLabel::mouseMoveEvent(QMouseEvent* event) {
    if (rect().contains(event->position().toPoint())) {
        Q_EMIT MouseMoved();
    }
}

void RowLabel::mousePressEvent(QMouseEvent* event) {
    QAbstractButton::mousePressEvent(event);
    Q_EMIT MouseMoved();
}

void RowLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat()) {
            Q_EMIT MouseMoved();
            click();
        }
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (parentWidget() != nullptr) {
            if (RowLabel* row = Neighbour(*this, event->key())) {
                row->setFocus(Qt::TabFocusReason);
            }
            return;
        }
        break;
    default:
        break;
    }
    event->ignore();
}

void HoverRows(std::span<RowLabel* const> rows, int& hoverRow, int index) {
    if (hoverRow != index) {
        RowLabel& left = *rows[static_cast<std::size_t>(hoverRow)];
        left.ForeColor(AfterPointerLeft(left.ForeColor()));
        hoverRow = index;
    }
    RowLabel& entered = *rows[static_cast<std::size_t>(index)];
    entered.ForeColor(AfterPointerEntered(entered.ForeColor()));
}

void MarkClicked(std::span<RowLabel* const> group, RowLabel& row) {
    if (row.ForeColor() == RowColour::Selected) {
        row.ForeColor(RowColour::Hovered);
    } else {
        for (RowLabel* other : group) {
            if (other != &row) {
                other->ForeColor(RowColour::Plain);
            }
        }
    }
    row.ForeColor(AfterClick(row.ForeColor()));
}

} // namespace tqx
