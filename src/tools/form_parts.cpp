#include "form_parts.h"

#include <controls/look.h>

#include <QKeySequence>

namespace tqx::parts {
namespace {

constexpr int ButtonMargins = 6 * look::Grid;

} // namespace

QString MemberName(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QGroupBox* Frame(const QString& title, const QString& name) {
    auto* frame = new QGroupBox(title);
    frame->setObjectName(name);
    return frame;
}

QPushButton* Button(const QString& text, const QString& name, const QString& tooltip,
                    const QString& shortcut) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + ButtonMargins);
    button->setToolTip(tooltip);
    if (!shortcut.isEmpty()) {
        button->setShortcut(QKeySequence(shortcut));
        button->setToolTip(QStringLiteral("%1 (%2)").arg(tooltip, shortcut));
    }
    return button;
}

QLabel* Label(const QString& text, const QString& name) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

QLabel* NumberLabel(const QString& text, const QString& name, QRgb ink) {
    QLabel* label = Label(text, name);
    label->setFont(look::NumbersFont());
    look::SetInk(*label, ink);
    return label;
}

QLabel* Heading(const QString& text, const QString& name) {
    QLabel* label = Label(text, name);
    look::SetInk(*label, look::QuietInk);
    return label;
}

QLabel* Note(const QString& text, const QString& name, int width) {
    QLabel* label = Label(text, name);
    label->setWordWrap(true);
    label->setFixedWidth(width);
    return label;
}

} // namespace tqx::parts
