#pragma once

#include <QAccessible>
#include <QAccessibleInterface>

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

} // namespace tqx
