#include "tools/tool_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace tqx {

ToolWindow::ToolWindow(const QString& formName, const QString& caption) {
    setObjectName(formName);
    setWindowTitle(caption);
    // The main window alone decides on the end of the application.
    setAttribute(Qt::WA_QuitOnClose, false);
}

void ToolWindow::reject() {
    close();
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (m_unloading) {
        return;
    }
    m_unloading = true;
    AskToStop();
    Q_EMIT Closed();
    if (CanBeDestroyed()) {
        Q_EMIT Unloaded();
    }
}

void ToolWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (!enter || button == nullptr) {
        QDialog::keyPressEvent(event);
        return;
    }
    // A dialog of its own accord would press the default button, which is another one.
    if (!event->isAutoRepeat()) {
        button->click();
    }
}

ToolWindow::Yielding::Yielding(ToolWindow& window)
    : m_window(window) {
    ++m_window.m_yielding;
}

ToolWindow::Yielding::~Yielding() {
    --m_window.m_yielding;
    if (m_window.CanBeDestroyed()) {
        Q_EMIT m_window.Unloaded();
    }
}

} // namespace tqx
