#pragma once

#include <QList>
#include <QWidget>

namespace tqx::test {

/// The controls of `window` on view that a user can point at, press or type into; Qt's own parts
/// of a control are none.
QList<QWidget*> ControlsOnView(const QWidget& window);

/// Checks that each of them tells a screen reader its name and what kind of control it is.
void ExpectNamesAndRoles(const QWidget& window);

/// Checks that no key sequence starts two things of `window` as it stands.
void ExpectNoShortcutTwice(const QWidget& window);

/// Checks that Tab, and the arrows among rows, come to every enabled control that acts, and Tab
/// then round to the first again. The window has the keyboard.
void ExpectTabReachesEverything(QWidget& window);

} // namespace tqx::test
