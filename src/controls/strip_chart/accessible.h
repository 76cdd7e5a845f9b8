#pragma once

#include "controls/strip_chart.h"

#include <QAccessibleWidget>

namespace tqx {

/// A chart to a screen reader: its title, the latest values, and what the user's hand did to it.
class AccessibleStripChart : public QAccessibleWidget {
public:
    explicit AccessibleStripChart(StripChart& chart);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    StripChart& m_chart;
};

} // namespace tqx
