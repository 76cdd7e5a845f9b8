#pragma once

#include <QAccessibleWidget>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace tqx {

class LinearGauge;

/// A gauge to a screen reader: a slider of the picked pointer that also says the reading.
class AccessibleGauge : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleGauge(LinearGauge& gauge);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    QString Description() const;

    LinearGauge& m_gauge;
};

} // namespace tqx
