#pragma once

#include <QTest>
#include <QWidget>

#include <stdexcept>

namespace tqx::test {

/// What a test does to a window by the names of its controls.
class Hands {
protected:
    template <class Object = QWidget>
    static Object& Find(const QObject& window, const QString& name) {
        auto* object = window.findChild<Object*>(name);
        if (object == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *object;
    }

    /// The name of a member of an array of controls.
    static QString Member(const char* array, int index) {
        return QStringLiteral("%1(%2)").arg(array).arg(index);
    }

    /// Clicks near the control's left end, where a check box has its box.
    static void Click(const QObject& window, const QString& name) {
        auto& control = Find(window, name);
        QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
    }
};

} // namespace tqx::test
