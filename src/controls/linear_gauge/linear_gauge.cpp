#include "controls/linear_gauge.h"

#include "controls/accessible_control.h"

#include <QAccessibleWidget>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tqx {
namespace {

constexpr int ArrowRoom = 16; // beyond the end of the bar, for its arrow
constexpr int MostDecimals = 9;

QString NameOf(int pointer) {
    switch (pointer) {
    case LowHandle:
        return "low handle";
    case HighHandle:
        return "high handle";
    default:
        return "band between the handles";
    }
}

/// Where a pointer stands, in words: "31 C", and a band "10 C to 50 C".
QString PlaceOf(const LinearGauge& gauge, int pointer) {
    const GaugePointer& it = gauge.Pointers()[static_cast<std::size_t>(pointer)];
    const int decimals = DecimalsOf(gauge.Pointers(), pointer);
    const auto withUnit = [&](double value) {
        return (GaugeNumber(value, decimals) + ' ' + gauge.Unit()).trimmed();
    };
    return IsBand(pointer)
               ? QStringLiteral("%1 to %2").arg(withUnit(it.Place.From), withUnit(it.Place.To))
               : withUnit(it.Place.Value);
}

QString ReadingOf(const LinearGauge& gauge) {
    return gauge.Caption().trimmed();
}

/// A gauge to a screen reader: a slider of the picked pointer that also says the reading.
class AccessibleGauge : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleGauge(LinearGauge& gauge)
        : QAccessibleWidget(&gauge, QAccessible::Slider)
        , m_gauge(gauge) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        const std::optional<int> picked = m_gauge.PickedPointer();
        switch (kind) {
        case QAccessible::Name: {
            const QString own = QAccessibleWidget::text(kind);
            return picked ? QStringLiteral("%1, %2").arg(own, NameOf(*picked)) : own;
        }
        case QAccessible::Value:
            return picked ? PlaceOf(m_gauge, *picked) : ReadingOf(m_gauge);
        case QAccessible::Description:
            return Description();
        case QAccessible::Help:
            return m_gauge.toolTip();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QVariant currentValue() const override {
        const std::optional<int> picked = m_gauge.PickedPointer();
        if (!picked) {
            return m_gauge.BarValue();
        }
        const PointerPlace& place = m_gauge.Pointers()[static_cast<std::size_t>(*picked)].Place;
        return IsBand(*picked) ? place.From : place.Value;
    }

    void setCurrentValue(const QVariant& value) override {
        bool isNumber = false;
        const double wanted = value.toDouble(&isNumber);
        if (const std::optional<int> picked = m_gauge.PickedPointer(); picked && isNumber) {
            m_gauge.MoveByHand(*picked, wanted);
        }
    }

    QVariant maximumValue() const override { return m_gauge.ScaleMax(); }

    QVariant minimumValue() const override { return m_gauge.ScaleMin(); }

    QVariant minimumStepSize() const override {
        return KeyStep(m_gauge.Scale(), DecimalsOf(m_gauge.Pointers(), LowHandle));
    }

private:
    /// The reading and where each pointer stands that can be moved: a value says one of them, and
    /// not the unit.
    QString Description() const {
        QStringList parts{QStringLiteral("reading %1").arg(ReadingOf(m_gauge))};
        for (const int handle : {LowHandle, HighHandle}) {
            if (IsDraggable(m_gauge.Pointers(), handle)) {
                parts << QStringLiteral("%1 at %2").arg(NameOf(handle), PlaceOf(m_gauge, handle));
            }
        }
        return parts.join(QStringLiteral(", "));
    }

    LinearGauge& m_gauge;
};

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
               "Escape puts a held pointer back.");
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

} // namespace tqx
