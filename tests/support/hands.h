#pragma once

#include <QLabel>
#include <QTest>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace tqx::test {

/// What a test does to a window by the names of its controls.
class Hands {
protected:
    virtual ~Hands() = default;

    /// The window that is meant where none is named.
    virtual QWidget& Window() { throw std::logic_error("no window"); }

    template <class Object = QWidget>
    static Object& Find(const QObject& window, const QString& name) {
        auto* object = window.findChild<Object*>(name);
        if (object == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *object;
    }

    template <class Object = QWidget>
    Object& Find(const QString& name) {
        return Find<Object>(Window(), name);
    }

    /// A member of an array of controls.
    template <class Object = QWidget>
    Object& Find(const char* array, int index) {
        return Find<Object>(Window(), Member(array, index));
    }

    /// The name of a member of an array of controls.
    static QString Member(const char* array, int index) {
        return QStringLiteral("%1(%2)").arg(array).arg(index);
    }

    /// What a label shows.
    std::string Text(const QString& label) { return Find<QLabel>(label).text().toStdString(); }

    bool Enabled(const QString& name) { return Find(name).isEnabled(); }

    /// Clicks near the control's left end, where a check box has its box.
    static void Click(QWidget& control) {
        QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
    }

    static void Click(const QObject& window, const QString& name) { Click(Find(window, name)); }

    void Click(const QString& name) { Click(Window(), name); }

    /// Types over what stands in an entry box and, unless told otherwise, confirms it.
    static void Enter(QWidget& box, const QString& keys, bool confirm = true) {
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QTest::keyClicks(&box, keys);
        if (confirm) {
            QTest::keyClick(&box, Qt::Key_Return);
        }
    }
};

} // namespace tqx::test
