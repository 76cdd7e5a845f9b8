#pragma once

#include <QMouseEvent>
#include <QWidget>

namespace tqx {

/// Tells a click of the left button on a widget: pressed on it, and let go while still on it. The
/// widget hands over each press and each release; whatever else it does at them is its own.
class LeftClick {
public:
    void Press(const QMouseEvent& event) { m_pressed = event.button() == Qt::LeftButton; }

    /// True where this release ends a click.
    bool Release(const QMouseEvent& event, const QWidget& widget) {
        if (!m_pressed || event.button() != Qt::LeftButton) {
            return false;
        }
        m_pressed = false;
        return widget.rect().contains(event.position().toPoint());
    }

private:
    bool m_pressed = false;
};

} // namespace tqx
