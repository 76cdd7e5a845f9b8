#include "controls/linear_gauge.h"

#include "controls/accessible_control.h"
#include "controls/look.h"
#include "linear_gauge/accessible.h"
#include "linear_gauge/painter.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tqx {
namespace {

constexpr int ArrowRoom = 16; // beyond the end of the bar, for its arrow
constexpr int MostDecimals = 9;
constexpr QSize HintBeyondSmallest(24, 220);

bool IsSame(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

} // namespace

LinearGauge::LinearGauge(QWidget* parent)
    : QWidget(parent) {
    DescribeToScreenReaders<LinearGauge, AccessibleGauge>();
    setAccessibleName("Gauge");
    setToolTip("Drag a handle, or a band with both handles, to move the limits.\n"
               "Keyboard: Tab picks one; the arrows, Page Up, Page Down, Home and End move it.\n"
               "Escape puts a pointer that you hold back where it was.");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_wheelPause.setSingleShot(true);
    connect(&m_wheelPause, &QTimer::timeout, this, &LinearGauge::Settle);
}

void LinearGauge::BarValue(double value) {
    if (IsSame(value, m_barValue)) {
        return;
    }
    const double before = std::exchange(m_barValue, value);
    TellValue();
    const double from = m_geometry.ToY(before);
    const double to = m_geometry.ToY(value);
    const bool wasOn = m_scale.Clamped(before) == before;
    const bool isOn = m_scale.Clamped(value) == value;
    if (from == to && !wasOn && !isOn) {
        return; // beyond the same end: the picture is the same
    }
    QRectF changed = m_geometry.BarColumn();
    changed.setTop(std::min(from, to) - ArrowRoom);
    changed.setBottom(std::max(from, to) + ArrowRoom);
    update(changed.toAlignedRect());
}

void LinearGauge::BarOrigin(int origin) {
    if (origin != m_barOrigin) {
        m_barOrigin = origin;
        update(m_geometry.BarColumn().toAlignedRect());
    }
}

void LinearGauge::Caption(const QString& caption) {
    if (caption != m_caption) {
        m_caption = caption;
        update(m_geometry.Caption());
    }
}

void LinearGauge::Unit(const QString& unit) {
    if (unit != m_unit) {
        m_unit = unit;
        update();
    }
}

void LinearGauge::ScaleMax(double value) {
    if (value != m_scale.Max && std::isfinite(value)) {
        m_scale.Max = value;
        LayOut();
    }
}

void LinearGauge::ScaleMin(double value) {
    if (value != m_scale.Min && std::isfinite(value)) {
        m_scale.Min = value;
        LayOut();
    }
}

void LinearGauge::PointerIndex(int pointer) {
    if (pointer >= 0 && pointer < static_cast<int>(m_pointers.size())) {
        m_pointerIndex = pointer;
    }
}

template <class Type>
void LinearGauge::Put(Type& field, Type value) {
    if (field != value) {
        field = value;
        PointersChanged();
    }
}

template <>
void LinearGauge::Put(double& field, double value) {
    if (field != value && std::isfinite(value)) {
        field = value;
        PointersChanged();
    }
}

void LinearGauge::PointerValue(double value) {
    Put(Addressed().Place.Value, value);
}

void LinearGauge::PointerFrom(double value) {
    Put(Addressed().Place.From, value);
}

void LinearGauge::PointerTo(double value) {
    Put(Addressed().Place.To, value);
}

void LinearGauge::PointerInner(double fraction) {
    Put(Addressed().Inner, fraction);
}

void LinearGauge::PointerOuter(double fraction) {
    Put(Addressed().Outer, fraction);
}

void LinearGauge::PointerWidth(double fraction) {
    Put(Addressed().Width, fraction);
}

void LinearGauge::PointerMouseControl(int control) {
    Put(Addressed().MouseControl, control);
}

void LinearGauge::PointerDecimals(int decimals) {
    Put(Addressed().Decimals, std::clamp(decimals, 0, MostDecimals));
}

QSize LinearGauge::sizeHint() const {
    return minimumSizeHint() + HintBeyondSmallest;
}

QSize LinearGauge::minimumSizeHint() const {
    return GaugeGeometry::SmallestSize(gauge::TextSizes());
}

void LinearGauge::PointersChanged() {
    if (m_hold && !IsDraggable(m_pointers, m_hold->Pointer)) {
        m_hold.reset(); // taken out of the hand
        m_wheelPause.stop();
    }
    TellValue();
    update();
}

/// Tells screen readers where the picked pointer stands now, else the reading, whoever moved it.
void LinearGauge::TellValue() {
    if (!QAccessible::isActive()) {
        return;
    }
    const QVariant value =
        QAccessible::queryAccessibleInterface(this)->valueInterface()->currentValue();
    if (value != m_toldValue) {
        m_toldValue = value;
        QAccessibleValueChangeEvent event(this, value);
        QAccessible::updateAccessibility(&event);
    }
}

void LinearGauge::LayOut() {
    m_geometry = GaugeGeometry(size(), m_scale, gauge::TextSizes());
    m_face = QPixmap();
    update();
}

void LinearGauge::resizeEvent(QResizeEvent*) {
    LayOut();
}

void LinearGauge::DrawFace(QPainter& painter) {
    const double ratio = devicePixelRatioF();
    if (m_face.isNull() || m_face.devicePixelRatio() != ratio) {
        m_face = QPixmap((QSizeF(size()) * ratio).toSize());
        m_face.setDevicePixelRatio(ratio);
        QPainter face(&m_face);
        gauge::DrawScale(face, size(), m_geometry);
    }
    painter.drawPixmap(0, 0, m_face);
}

void LinearGauge::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    DrawFace(painter);
    const QRect caption = m_geometry.Caption();
    if (event->region().intersects(caption)) {
        const int decimals = DecimalsOf(m_pointers, LowHandle);
        gauge::DrawCaption(painter, caption, m_caption,
                           gauge::CaptionCharacters(m_scale, decimals, m_unit));
    }
    if (caption.contains(event->rect())) {
        return;
    }
    const gauge::Reading reading{static_cast<double>(m_barOrigin),
                                 m_barValue,
                                 m_pointers,
                                 m_unit,
                                 m_hold ? std::optional(m_hold->Pointer) : std::nullopt,
                                 hasFocus() ? PickedPointer() : std::nullopt};
    gauge::DrawBar(painter, m_geometry, reading);
    gauge::DrawPointers(painter, m_geometry, reading, event->region());
}

} // namespace tqx
