// The user's hand on a gauge: mouse, wheel and keyboard.

#include "controls/accessible_control.h"
#include "controls/linear_gauge.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tqx {
namespace {

using namespace std::chrono_literals;

constexpr auto WheelPause = 400ms; // after the last turn, before the pointer settles
constexpr double ClickSlack = 2.0; // pixels that a click may slip without moving the pointer
constexpr double PageSteps = 10.0;
constexpr std::array TabOrder = {LowHandle, HighHandle, 0, 1};

/// How far a key moves a pointer, in steps; none for a key that moves nothing. Home and End move it
/// by more than any scale has.
std::optional<double> StepsOfKey(int key) {
    constexpr double ToTheEnd = 1e9;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        return 1.0;
    case Qt::Key_Down:
    case Qt::Key_Left:
        return -1.0;
    case Qt::Key_PageUp:
        return PageSteps;
    case Qt::Key_PageDown:
        return -PageSteps;
    case Qt::Key_Home:
        return -ToTheEnd;
    case Qt::Key_End:
        return ToTheEnd;
    default:
        return std::nullopt;
    }
}

/// The draggable pointer after `from` in the order of Tab, or before it; none at the end.
std::optional<int> NextInTabOrder(const GaugePointers& pointers, std::optional<int> from,
                                  bool forward) {
    std::array order = TabOrder;
    if (!forward) {
        std::reverse(order.begin(), order.end());
    }
    auto next = from ? std::find(order.begin(), order.end(), *from) : order.end();
    next = next == order.end() ? order.begin() : next + 1;
    next = std::find_if(next, order.end(), [&](int it) { return IsDraggable(pointers, it); });
    return next == order.end() ? std::nullopt : std::optional(*next);
}

} // namespace

std::optional<int> LinearGauge::PickedPointer() const {
    return m_picked && IsDraggable(m_pointers, *m_picked) ? m_picked : std::nullopt;
}

void LinearGauge::MoveByHand(int pointer, double value) {
    if (!IsDraggable(m_pointers, pointer) || !std::isfinite(value)) {
        return;
    }
    Settle();
    Pick(pointer);
    const PointerPlace& place = m_pointers[static_cast<std::size_t>(pointer)].Place;
    StepBy(Hand::Keys, value - (IsBand(pointer) ? place.From : m_scale.Clamped(place.Value)));
    Settle();
}

void LinearGauge::LetGo() {
    m_wheelPause.stop();
    m_hold.reset();
    update();
}

void LinearGauge::Pick(std::optional<int> pointer) {
    if (pointer != m_picked) {
        m_picked = pointer;
        update();
        TellScreenReaders(*this, QAccessible::NameChanged);
        TellValue();
    }
}

void LinearGauge::TakeHold(Hand by, int pointer, double takenAt) {
    // Compared with what the hand asks for next: rounding alone is no step.
    const PointerPlace asked = Shifted(pointer, m_pointers[static_cast<std::size_t>(pointer)].Place,
                                       0.0, m_scale, DecimalsOf(m_pointers, pointer));
    m_hold = Hold{by, pointer, takenAt, asked, m_pointers};
    update();
}

/// One step of the pointer that is held, to `place`.
void LinearGauge::StepHeld(const PointerPlace& place) {
    const int pointer = m_hold->Pointer;
    m_hold->Asked = place;
    m_hold->Moved = true;
    m_pointers[static_cast<std::size_t>(pointer)].Place = place;
    update();
    TellMoved(pointer);
    TellValue();
}

/// One step of the picked pointer from where it stands.
void LinearGauge::StepBy(Hand by, double shift) {
    const std::optional<int> pointer = PickedPointer();
    if (!pointer) {
        return;
    }
    if (m_hold && (m_hold->By != by || m_hold->Pointer != *pointer)) {
        Settle();
    }
    const PointerPlace now = m_pointers[static_cast<std::size_t>(*pointer)].Place;
    const PointerPlace place =
        Shifted(*pointer, now, shift, m_scale, DecimalsOf(m_pointers, *pointer));
    if (place == now) {
        return;
    }
    if (!m_hold) {
        TakeHold(by, *pointer);
    }
    StepHeld(place);
}

void LinearGauge::TellMoved(int pointer) {
    m_pointerIndex = pointer;
    Q_EMIT PointerMoved();
}

/// Lets go of the pointer that is held and, if it was moved, says so.
void LinearGauge::Settle() {
    m_wheelPause.stop();
    if (!m_hold) {
        return;
    }
    const Hold hold = *std::exchange(m_hold, std::nullopt);
    update();
    if (hold.Moved) {
        TellMoved(hold.Pointer);
        m_pointerIndex = hold.Pointer;
        Q_EMIT PointerSettled();
    }
}

/// Lets go of the pointer that is held and puts all of them back where they stood before. A
/// handler that acts on every step must act once more, on the old places; one that keeps the
/// pointers apart has the last word on a step of the user's, but not on this one.
void LinearGauge::PutBack() {
    m_wheelPause.stop();
    const Hold hold = *std::exchange(m_hold, std::nullopt);
    update();
    if (!hold.Moved) {
        return;
    }
    const auto restore = [&] {
        for (std::size_t i = 0; i < m_pointers.size(); ++i) {
            m_pointers[i].Place = hold.Start[i].Place;
        }
    };
    restore();
    TellMoved(hold.Pointer);
    restore();
    TellValue();
}

void LinearGauge::ShowCursor(QPointF point) {
    const std::optional<int> pointer =
        m_hold ? m_hold->Pointer : m_geometry.PointerAt(point, m_pointers, PickedPointer());
    Qt::CursorShape shape = Qt::ArrowCursor;
    if (pointer) {
        shape = !IsBand(*pointer) ? Qt::SizeVerCursor
                : m_hold          ? Qt::ClosedHandCursor
                                  : Qt::OpenHandCursor;
    }
    if (cursor().shape() != shape) {
        setCursor(shape);
    }
}

void LinearGauge::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    Settle();
    const QPointF point = event->position();
    const std::optional<int> pointer = m_geometry.PointerAt(point, m_pointers, PickedPointer());
    if (pointer) {
        Pick(pointer);
        TakeHold(Hand::Mouse, *pointer, m_geometry.ToValue(point.y()));
    }
    ShowCursor(point);
}

void LinearGauge::mouseMoveEvent(QMouseEvent* event) {
    ShowCursor(event->position());
    if (!m_hold || m_hold->By != Hand::Mouse) {
        return;
    }
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        Settle(); // the release went elsewhere
        return;
    }
    const double slipped = std::abs(event->position().y() - m_geometry.ToY(m_hold->TakenAt));
    if (!m_hold->Moved && slipped < ClickSlack) {
        return;
    }
    const auto held = static_cast<std::size_t>(m_hold->Pointer);
    const double shift = m_geometry.ToValue(event->position().y()) - m_hold->TakenAt;
    const PointerPlace place = Shifted(m_hold->Pointer, m_hold->Start[held].Place, shift, m_scale,
                                       DecimalsOf(m_pointers, m_hold->Pointer));
    if (place != m_hold->Asked) {
        StepHeld(place);
    }
}

void LinearGauge::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_hold && m_hold->By == Hand::Mouse) {
        Settle();
    }
    ShowCursor(event->position());
}

void LinearGauge::wheelEvent(QWheelEvent* event) {
    constexpr int Notch = 120; // eighths of a degree
    const std::optional<int> picked = PickedPointer();
    // A pointer on the move leaves the mouse behind; the wheel stays with it until it settles.
    const bool turning = m_hold && m_hold->By == Hand::Wheel;
    const bool over =
        picked && m_geometry.PointerAt(event->position(), m_pointers, picked) == picked;
    if ((m_hold && !turning) || (!turning && !over)) {
        event->ignore();
        return;
    }
    event->accept();
    m_wheelTurn += event->angleDelta().y();
    const int steps = std::exchange(m_wheelTurn, m_wheelTurn % Notch) / Notch;
    if (steps != 0) {
        StepBy(Hand::Wheel, steps * KeyStep(m_scale, DecimalsOf(m_pointers, *picked)));
    }
    if (m_hold) {
        m_wheelPause.start(WheelPause);
    }
}

bool LinearGauge::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && m_hold &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept(); // Escape is for the pointer, not for a shortcut of the window
        return true;
    }
    return QWidget::event(event);
}

void LinearGauge::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_hold) {
        PutBack();
        return;
    }
    const std::optional<double> steps = StepsOfKey(event->key());
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!steps || !plain) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_hold && m_hold->By == Hand::Mouse) {
        return;
    }
    if (!PickedPointer()) {
        Pick(NextInTabOrder(m_pointers, std::nullopt, true));
    }
    if (const std::optional<int> picked = PickedPointer()) {
        const double step = KeyStep(m_scale, DecimalsOf(m_pointers, *picked));
        StepBy(Hand::Keys, std::clamp(*steps * step, -m_scale.Span(), m_scale.Span()));
    }
}

void LinearGauge::keyReleaseEvent(QKeyEvent* event) {
    if (!StepsOfKey(event->key())) {
        QWidget::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat() && m_hold && m_hold->By == Hand::Keys) {
        Settle();
    }
}

void LinearGauge::focusInEvent(QFocusEvent* event) {
    const bool backward = event->reason() == Qt::BacktabFocusReason;
    if (backward || event->reason() == Qt::TabFocusReason) {
        Pick(NextInTabOrder(m_pointers, std::nullopt, !backward));
    }
    update();
}

void LinearGauge::focusOutEvent(QFocusEvent*) {
    update();
    if (m_hold && m_hold->By != Hand::Mouse) {
        Settle();
    }
}

bool LinearGauge::focusNextPrevChild(bool next) {
    if (hasFocus() && m_hold && m_hold->By == Hand::Mouse) {
        return true; // one pointer is in the hand already
    }
    if (hasFocus()) {
        Settle();
        if (const auto pointer = NextInTabOrder(m_pointers, PickedPointer(), next)) {
            Pick(pointer);
            return true;
        }
    }
    return QWidget::focusNextPrevChild(next);
}

void LinearGauge::hideEvent(QHideEvent*) {
    Settle();
}

void LinearGauge::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        Settle();
    }
}

} // namespace tqx
