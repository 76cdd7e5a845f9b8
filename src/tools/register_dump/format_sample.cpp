#include "register_dump/format_sample.h"

#include <controls/look.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace tqx {
namespace {

constexpr int LineHeight = 4 * look::Grid;

} // namespace

FormatSample::FormatSample(QLabel* sample, std::vector<Part> parts)
    : m_sample(sample)
    , m_parts(std::move(parts)) {
    auto* names = new QHBoxLayout;
    names->setSpacing(5 * look::Grid);
    names->addStretch();
    for (const Part& part : m_parts) {
        names->addWidget(part.Name);
    }
    names->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_sample, 0, Qt::AlignHCenter);
    column->addSpacing(LineHeight);
    column->addLayout(names);
}

void FormatSample::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(look::QuietInk), 1));
    const QFontMetricsF metrics(m_sample->font());
    const QString text = m_sample->text();
    for (const Part& part : m_parts) {
        const qreal from = m_sample->x() + metrics.horizontalAdvance(text.left(part.First));
        const qreal width = metrics.horizontalAdvance(text.mid(part.First, part.Length));
        const qreal bottom = m_sample->geometry().bottom() + 1.5;
        const QPointF name(part.Name->geometry().center().x(), part.Name->y() - 1);
        painter.drawLine(QPointF(from + 1, bottom), QPointF(from + width - 1, bottom));
        painter.drawLine(QPointF(from + width / 2, bottom), name);
    }
}

} // namespace tqx
