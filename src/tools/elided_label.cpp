#include "elided_label.h"

#include <QPainter>

namespace tqx {
namespace {

constexpr int HintedCharacters = 24;

} // namespace

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * HintedCharacters, fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const {
    return minimumSizeHint();
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

} // namespace tqx
