#include "controls/press_focused_button.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace tqx {

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

} // namespace tqx
