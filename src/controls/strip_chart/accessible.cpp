#include "strip_chart/accessible.h"

namespace tqx {

AccessibleStripChart::AccessibleStripChart(StripChart& chart)
    : QAccessibleWidget(&chart, QAccessible::Chart)
    , m_chart(chart) {}

QString AccessibleStripChart::text(QAccessible::Text kind) const {
    switch (kind) {
    case QAccessible::Name:
        return m_chart.Title().isEmpty() ? QAccessibleWidget::text(kind)
                                         : StripChart::tr("Strip chart: %1").arg(m_chart.Title());
    case QAccessible::Value:
        return m_chart.LatestText();
    case QAccessible::Description:
        return QStringList{m_chart.StateText(), m_chart.LatestText()}
            .join(QLatin1Char('\n'))
            .trimmed();
    default:
        return QAccessibleWidget::text(kind);
    }
}

/// Pressing a chart freezes it or lets it go on.
QStringList AccessibleStripChart::actionNames() const {
    return {pressAction(), setFocusAction()};
}

void AccessibleStripChart::doAction(const QString& action) {
    if (action == pressAction()) {
        m_chart.Freeze(!m_chart.Frozen());
    } else {
        QAccessibleWidget::doAction(action);
    }
}

} // namespace tqx
