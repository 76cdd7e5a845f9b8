#include "controls/hand_combo.h"

#include <QWheelEvent>

namespace tqx {

void HandCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace tqx
