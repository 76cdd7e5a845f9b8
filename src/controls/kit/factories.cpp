#include "controls/factories.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QToolButton>

namespace tqx::kit {
namespace {

constexpr int ButtonMargins = 6 * look::Grid;

void GiveTooltip(QAbstractButton& button, const QString& tooltip, const QString& shortcut) {
    if (shortcut.isEmpty()) {
        button.setToolTip(tooltip);
        return;
    }
    button.setShortcut(QKeySequence(shortcut));
    button.setToolTip(QStringLiteral("%1 (%2)").arg(tooltip, shortcut));
}

} // namespace

QString MemberName(const char* array, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

void Name(QWidget& control, const QString& name, const QString& accessibleName,
          const QString& tooltip) {
    control.setObjectName(name);
    control.setAccessibleName(accessibleName);
    control.setToolTip(tooltip);
}

QLabel* Label(const QString& name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

QLabel* Label(const QString& name, const QString& text, const QFont& font, QRgb ink) {
    QLabel* label = Label(name, text);
    label->setFont(font);
    look::SetInk(*label, ink);
    return label;
}

QLabel* NumberLabel(const QString& name, const QString& text, QRgb ink) {
    return Label(name, text, look::NumbersFont(), ink);
}

QLabel* Heading(const QString& name, const QString& text) {
    QLabel* label = Label(name, text);
    look::SetInk(*label, look::QuietInk);
    return label;
}

QLabel* Text(const QString& name, const QString& text, int width) {
    QLabel* label = Label(name, text);
    label->setWordWrap(true);
    if (width > 0) {
        label->setFixedWidth(width);
    }
    return label;
}

QLabel* SmallPrint(const QString& name, const QString& text, int width) {
    QLabel* label = Text(name, text, width);
    label->setFont(look::WordsFont(look::Size::Note));
    look::SetInk(*label, look::QuietInk);
    return label;
}

QLabel* Readout(const QString& name, const QString& widest) {
    QLabel* label = Label(name);
    label->setFont(look::NumbersFont());
    look::MakeDisplay(*label);
    look::SetInk(*label, look::DisplayGreen);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(look::Grid, 0, look::Grid, 0);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 3 * look::Grid);
    return label;
}

void ShowReadout(QLabel& label, const QString& meaning, const QString& text) {
    if (text != label.text() || label.accessibleName().isEmpty()) {
        label.setText(text);
        label.setAccessibleName(text.isEmpty() ? meaning : meaning + ": " + text);
    }
}

QGroupBox* Frame(const QString& name, const QString& title) {
    auto* frame = new QGroupBox(title);
    frame->setObjectName(name);
    return frame;
}

QPushButton* Button(const QString& name, const QString& text, const QString& tooltip,
                    const QString& shortcut) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + ButtonMargins);
    GiveTooltip(*button, tooltip, shortcut);
    return button;
}

bool PressFocusedButton(const QWidget& window, const QKeyEvent& event) {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    QWidget* focused = window.focusWidget();
    const bool button = qobject_cast<QPushButton*>(focused) || qobject_cast<QToolButton*>(focused);
    if (!enter || !button) {
        return false;
    }
    if (!event.isAutoRepeat()) {
        static_cast<QAbstractButton*>(focused)->click();
    }
    return true;
}

QCheckBox* CheckBox(const QString& name, const QString& text, const QString& tooltip,
                    const QString& shortcut) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    GiveTooltip(*box, tooltip, shortcut);
    return box;
}

NumberEntry* Entry(const QString& name, NumberEntry::Base base, const QString& meaning) {
    auto* entry = new NumberEntry(base);
    entry->setObjectName(name);
    entry->setAccessibleName(meaning);
    return entry;
}

QProgressBar* ProgressLine(const QString& name, const QString& meaning, int end) {
    auto* bar = new QProgressBar;
    bar->setObjectName(name);
    bar->setAccessibleName(meaning);
    bar->setRange(0, end);
    bar->setValue(0);
    bar->setTextVisible(false);
    bar->setFixedHeight(2 * look::Grid);
    return bar;
}

} // namespace tqx::kit
