#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QString>

namespace tqx {

/// The controls that the tool windows are made of.
namespace parts {

/// `name(index)`: the objectName of a member of a control array.
QString MemberName(const char* name, int index);

/// A frame with its title; an empty one has none.
QGroupBox* Frame(const QString& title, const QString& name);

/// A button that is not the default one unless it is made so. `shortcut` ("Alt+R"), which may be
/// empty, is added to the tooltip.
QPushButton* Button(const QString& text, const QString& name, const QString& tooltip,
                    const QString& shortcut = {});

/// A label in the face for words.
QLabel* Label(const QString& text, const QString& name);

/// A label in the face for numbers, in `ink`.
QLabel* NumberLabel(const QString& text, const QString& name, QRgb ink);

/// A quiet heading of a column or row.
QLabel* Heading(const QString& text, const QString& name);

/// A label of some sentences, `width` wide, that breaks its lines.
QLabel* Note(const QString& text, const QString& name, int width);

} // namespace parts
} // namespace tqx
