#pragma once

#include <QComboBox>

namespace tqx {

/// A drop-down list for choices that go to the chip: only a click or a key changes it. The mouse
/// wheel, which turns ordinary lists under the pointer by accident, leaves it alone.
class HandCombo : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace tqx
