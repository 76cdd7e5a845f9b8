#include "board_parts.h"

#include <controls/look.h>

namespace tqx::boardparts {

QString MemberName(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

void Name(QWidget& control, const QString& objectName, const QString& accessibleName,
          const QString& tooltip) {
    control.setObjectName(objectName);
    control.setAccessibleName(accessibleName);
    control.setToolTip(tooltip);
}

QLabel* Readout(const QString& objectName, const QString& widest) {
    auto* label = new QLabel;
    label->setObjectName(objectName);
    label->setFont(look::NumbersFont());
    look::MakeDisplay(*label);
    look::SetInk(*label, look::DisplayGreen);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(look::Grid, 0, look::Grid, 0);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 3 * look::Grid);
    return label;
}

QLabel* Sentence(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(look::WordsFont(look::Size::Note));
    look::SetInk(*label, look::QuietInk);
    label->setWordWrap(true);
    return label;
}

QLabel* Heading(const QString& text) {
    auto* label = new QLabel(text);
    look::SetInk(*label, look::QuietInk);
    return label;
}

} // namespace tqx::boardparts
