#pragma once

#include <QDoubleSpinBox>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QString>
#include <QWheelEvent>
#include <QWidget>

namespace tqx {

/// A page of the board's window.
class BoardPage : public QWidget {
public:
    using QWidget::QWidget;

    /// Shows how the board stands at this moment. Called a few times a second while on view.
    virtual void Refresh() {}
};

/// A control that sets something on the board: the wheel turns it only while it has the focus, and
/// not because the pointer happens to be over it.
template <class Control>
class HandOnly : public Control {
public:
    explicit HandOnly(QWidget* parent = nullptr)
        : Control(parent) {
        Control::setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (Control::hasFocus()) {
            Control::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

using HandSlider = HandOnly<QSlider>;
using HandNumber = HandOnly<QSpinBox>;
using HandValue = HandOnly<QDoubleSpinBox>;

namespace boardparts {

/// `name(index)`: the objectName of a member of an array.
QString MemberName(const char* name, int index);

/// Gives a control its names for tests, for screen readers (empty: its text) and for the pointer.
void Name(QWidget& control, const QString& objectName, const QString& accessibleName,
          const QString& tooltip);

/// A dark read-out in fixed-width digits, wide enough for `widest`.
QLabel* Readout(const QString& objectName, const QString& widest);

/// A quiet sentence that breaks its lines.
QLabel* Sentence(const QString& text);

/// The quiet heading of a column.
QLabel* Heading(const QString& text);

} // namespace boardparts
} // namespace tqx
