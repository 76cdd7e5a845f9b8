#pragma once

#include <QLabel>
#include <QString>

namespace tqx {

/// Shows `text` on a label whose place in the window says what it is, and says both to a screen
/// reader: "Address: 4F".
inline void ShowReadout(QLabel& label, const QString& meaning, const QString& text) {
    if (text != label.text() || label.accessibleName().isEmpty()) {
        label.setText(text);
        label.setAccessibleName(text.isEmpty() ? meaning : meaning + ": " + text);
    }
}

} // namespace tqx
