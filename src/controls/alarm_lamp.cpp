#include "controls/alarm_lamp.h"

#include "controls/accessible_control.h"
#include "controls/look.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace tqx {
namespace {

constexpr int Side = 16;

/// A lamp to a screen reader: a picture whose name says the state. A value that is no number would
/// not be told on every desktop, and an indicator is a thing that not every desktop knows.
class AccessibleLamp : public QAccessibleWidget {
public:
    explicit AccessibleLamp(AlarmLamp& lamp)
        : QAccessibleWidget(&lamp, QAccessible::Graphic)
        , m_lamp(lamp) {}

    QString text(QAccessible::Text kind) const override {
        QString own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name) {
            return own;
        }
        return own + (m_lamp.Value() ? ": on" : ": off");
    }

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& action) override {
        if (action == pressAction()) {
            m_lamp.click();
        }
    }

private:
    AlarmLamp& m_lamp;
};

void DrawDark(QPainter& painter, QPointF centre) {
    painter.setPen(QPen(QColor(look::DisplayQuiet), 1.25));
    painter.setBrush(QColor(look::LampDark));
    painter.drawEllipse(centre, 3.0, 3.0);
}

void DrawLit(QPainter& painter, QPointF centre) {
    const QPointF corners[] = {centre + QPointF(0, -6.0), centre + QPointF(6.5, 5.5),
                               centre + QPointF(-6.5, 5.5)};
    painter.setPen(QPen(QColor(look::LampLit), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(look::LampLit));
    painter.drawPolygon(corners, std::size(corners));
    painter.setPen(QPen(QColor(look::Display), 1.75, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + QPointF(0, -2.0), centre + QPointF(0, 1.5));
    painter.drawPoint(centre + QPointF(0, 4.0));
}

} // namespace

AlarmLamp::AlarmLamp(QWidget* parent)
    : QAbstractButton(parent) {
    DescribeToScreenReaders<AlarmLamp, AccessibleLamp>();
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void AlarmLamp::Value(bool lit) {
    if (lit == m_value) {
        return;
    }
    m_value = lit;
    update();
    TellScreenReaders(*this, QAccessible::NameChanged);
}

QSize AlarmLamp::sizeHint() const {
    return {Side, Side};
}

QSize AlarmLamp::minimumSizeHint() const {
    return sizeHint();
}

void AlarmLamp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(rect()).center();
    if (m_value) {
        DrawLit(painter, centre);
    } else {
        DrawDark(painter, centre);
    }
}

} // namespace tqx
