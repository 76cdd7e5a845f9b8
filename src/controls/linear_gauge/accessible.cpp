#include "linear_gauge/accessible.h"

#include "controls/linear_gauge.h"

namespace tqx {
namespace {

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

} // namespace

AccessibleGauge::AccessibleGauge(LinearGauge& gauge)
    : QAccessibleWidget(&gauge, QAccessible::Slider)
    , m_gauge(gauge) {}

void* AccessibleGauge::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleGauge::text(QAccessible::Text kind) const {
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

/// The reading and where each pointer stands that can be moved: a value says one of them, and not
/// the unit.
QString AccessibleGauge::Description() const {
    QStringList parts{QStringLiteral("reading %1").arg(ReadingOf(m_gauge))};
    for (const int handle : {LowHandle, HighHandle}) {
        if (IsDraggable(m_gauge.Pointers(), handle)) {
            parts << QStringLiteral("%1 at %2").arg(NameOf(handle), PlaceOf(m_gauge, handle));
        }
    }
    return parts.join(QStringLiteral(", "));
}

QVariant AccessibleGauge::currentValue() const {
    const std::optional<int> picked = m_gauge.PickedPointer();
    if (!picked) {
        return m_gauge.BarValue();
    }
    const PointerPlace& place = m_gauge.Pointers()[static_cast<std::size_t>(*picked)].Place;
    return IsBand(*picked) ? place.From : place.Value;
}

void AccessibleGauge::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const double wanted = value.toDouble(&isNumber);
    if (const std::optional<int> picked = m_gauge.PickedPointer(); picked && isNumber) {
        m_gauge.MoveByHand(*picked, wanted);
    }
}

QVariant AccessibleGauge::maximumValue() const {
    return m_gauge.ScaleMax();
}

QVariant AccessibleGauge::minimumValue() const {
    return m_gauge.ScaleMin();
}

QVariant AccessibleGauge::minimumStepSize() const {
    return KeyStep(m_gauge.Scale(), DecimalsOf(m_gauge.Pointers(), LowHandle));
}

} // namespace tqx
