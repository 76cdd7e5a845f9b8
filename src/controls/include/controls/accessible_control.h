#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QWidget>

namespace tqx {

/// Has screen readers meet every `Control` through an `Interface` made of it. Called
/// first in the control's constructor, ahead of an accessible name: that already makes an
/// interface, which then stays.
template <class Control, class Interface>
void DescribeToScreenReaders() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* control = qobject_cast<Control*>(object);
            return control == nullptr ? nullptr : new Interface(*control); // owned by Qt's cache
        });
        return true;
    }();
}

/// Tells screen readers that `what` of `control` has changed: NameChanged, SelectionAdd and the
/// like. While there are none it costs a glance, so that a control need not ask before it tells.
inline void TellScreenReaders(QWidget& control, QAccessible::Event what) {
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&control, what);
        QAccessible::updateAccessibility(&event);
    }
}

/// The same for the states that are set in `changed`.
inline void TellScreenReaders(QWidget& control, QAccessible::State changed) {
    if (QAccessible::isActive()) {
        QAccessibleStateChangeEvent event(&control, changed);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace tqx
