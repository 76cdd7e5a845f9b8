#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSlider>
#include <QSpinBox>
#include <QWheelEvent>

namespace tqx {

/// A control whose choice goes to the chip or to the board: only a click or a key changes it. The
/// mouse wheel, which turns ordinary controls because the pointer happens to be over them, leaves
/// it alone, and scrolls what lies around it.
template <class Control>
class HandOnly : public Control {
public:
    explicit HandOnly(QWidget* parent = nullptr)
        : Control(parent) {
        Control::setFocusPolicy(Qt::StrongFocus); // the wheel brings no focus either
    }

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

using HandCombo = HandOnly<QComboBox>;
using HandNumber = HandOnly<QSpinBox>;
using HandSlider = HandOnly<QSlider>;
using HandValue = HandOnly<QDoubleSpinBox>;

} // namespace tqx
