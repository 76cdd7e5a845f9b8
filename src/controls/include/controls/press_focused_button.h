#pragma once

class QKeyEvent;
class QWidget;

namespace tqx {

/// For the `keyPressEvent` of a window: when `event` is Enter and a button of `window` has the
/// focus, presses that button, once however long the key is held. True when it was such a key.
///
/// Only a key that the control with the focus has not taken comes to its window, and check boxes
/// are no buttons here: Enter in an entry box stays the box's own, and ticks nothing.
bool PressFocusedButton(const QWidget& window, const QKeyEvent& event);

} // namespace tqx
