#pragma once

#include "controls/look.h"
#include "controls/number_entry.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QString>

class QKeyEvent;

/// The controls that the windows are made of. Every factory takes the control's objectName first
/// (empty for one that nobody looks for), then the text that stands on it.
namespace tqx::kit {

/// `array(index)`: the objectName of a member of a control array.
QString MemberName(const char* array, int index);

/// Gives `control` its objectName, its name for screen readers (empty: its text) and its tooltip.
void Name(QWidget& control, const QString& name, const QString& accessibleName,
          const QString& tooltip);

/// @name Labels
/// @{

/// A label in the face for words.
QLabel* Label(const QString& name, const QString& text = {});

/// A label in `font` and `ink`.
QLabel* Label(const QString& name, const QString& text, const QFont& font, QRgb ink);

/// A label in the face for numbers, in `ink`.
QLabel* NumberLabel(const QString& name, const QString& text, QRgb ink);

/// A quiet heading of a column or row.
QLabel* Heading(const QString& name, const QString& text);

/// Some sentences that break their lines, in the width that there is or in `width`.
QLabel* Text(const QString& name, const QString& text, int width = 0);

/// The same, quiet and in small print.
QLabel* SmallPrint(const QString& name, const QString& text, int width = 0);

/// A dark read-out in fixed-width digits, wide enough for `widest`.
QLabel* Readout(const QString& name, const QString& widest);

/// Shows `text` on a label whose place in the window says what it is, and says both to a screen
/// reader: "Address: 4F".
void ShowReadout(QLabel& label, const QString& meaning, const QString& text);
/// @}

/// A frame with its title; an empty one has none.
QGroupBox* Frame(const QString& name, const QString& title);

/// A button that is not the default one unless it is made so. `shortcut` ("Alt+R"), which may be
/// empty, is added to the tooltip.
QPushButton* Button(const QString& name, const QString& text, const QString& tooltip,
                    const QString& shortcut = {});

/// For the `keyPressEvent` of a window: when `event` is Enter and a button of `window` has the
/// focus, presses that button, once however long the key is held. True when it was such a key.
///
/// Only a key that the control with the focus has not taken comes to its window, and check boxes
/// are no buttons here: Enter in an entry box stays the box's own, and ticks nothing.
bool PressFocusedButton(const QWidget& window, const QKeyEvent& event);

/// A check box; its shortcut is treated as that of a button.
QCheckBox* CheckBox(const QString& name, const QString& text, const QString& tooltip,
                    const QString& shortcut = {});

/// An entry box; `meaning` is for screen readers.
NumberEntry* Entry(const QString& name, NumberEntry::Base base, const QString& meaning);

/// A thin progress bar without a text, from 0 to `end`; `meaning` is for screen readers.
QProgressBar* ProgressLine(const QString& name, const QString& meaning, int end);

} // namespace tqx::kit
