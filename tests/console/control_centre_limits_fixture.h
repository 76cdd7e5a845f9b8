#pragma once

#include "console/control_centre_fixture.h"

#include <QMouseEvent>

#include <cstdint>

namespace tqx::test {

/// Where a handle of the gauge stands.
inline double Place(LinearGauge& gauge, int pointer) {
    gauge.PointerIndex(pointer);
    return gauge.PointerValue();
}

/// Puts a handle of the gauge there, as the program would.
inline void Put(LinearGauge& gauge, int pointer, double value) {
    gauge.PointerIndex(pointer);
    gauge.PointerValue(value);
}

/// A channel on the gauge and the user's hand on its pointers.
class ControlCentreLimits : public ControlCentreTest {
protected:
    /// The row on the gauge with these bytes in its limit registers.
    void PutOnGauge(int row, std::uint8_t lowRegister, std::uint8_t low, std::uint8_t highRegister,
                    std::uint8_t high) {
        EnterAndStop();
        link->Registers[lowRegister] = low;
        link->Registers[highRegister] = high;
        Tabs().setCurrentIndex(row < 7 ? 0 : row < 15 ? 1 : 2);
        Click(Row(row));
        panel->StopMonitorTimers();
        link->Take();
    }

    /// Where a pointer can be taken with the mouse: a handle by its line, a band by its middle.
    QPoint Grip(int pointer) {
        const GaugeGeometry& geometry = Gauge().Plan();
        const GaugePointer& at = Gauge().Pointers().at(pointer);
        return (pointer < 2 ? geometry.Band(at) : geometry.HandleLine(at)).center().toPoint();
    }

    /// Sends a move of the mouse with its left button down.
    void MoveTo(const QPointF& point) {
        QMouseEvent move(QEvent::MouseMove, point, Gauge().mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Gauge(), &move);
    }

    /// Drags a pointer to a value on the scale in a few steps, and lets go.
    void Drag(int pointer, double value) {
        const QPoint from = Grip(pointer);
        const QPoint to(from.x(), qRound(Gauge().Plan().ToY(value)));
        QTest::mousePress(&Gauge(), Qt::LeftButton, Qt::NoModifier, from);
        for (int step = 1; step <= 4; ++step) {
            MoveTo(from + (to - from) * step / 4);
        }
        QTest::mouseRelease(&Gauge(), Qt::LeftButton, Qt::NoModifier, to);
    }
};

} // namespace tqx::test
