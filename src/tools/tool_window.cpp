#include "tool_window.h"

#include <controls/factories.h>

#include <QCloseEvent>

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
    // A dialog of its own accord would press the default button, which is another one.
    if (!kit::PressFocusedButton(*this, *event)) {
        QDialog::keyPressEvent(event);
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
