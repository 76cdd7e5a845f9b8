#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>

namespace tqx {

/// Ends the event loop once a window of the application has been painted.
class QuitAtFirstPaint : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QMetaObject::invokeMethod(
                qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(object, event);
    }
};

} // namespace tqx
