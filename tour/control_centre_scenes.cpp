#include "tour.h"

#include <console/main_form.h>
#include <controls/alarm_lamp.h>
#include <controls/linear_gauge.h>
#include <controls/strip_chart.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>

namespace tqx {
namespace {

using namespace std::chrono_literals;

constexpr int RowFan0 = 7;
constexpr int RowMinus12V = 17;
constexpr int Row12V = 18;
constexpr int PagesBelowReading = 6; ///< of the high handle, from its default down past +12 V
constexpr std::uint8_t HighLimit12V = 0x46;
constexpr std::uint8_t HighLimitMinus12V = 0x47;
constexpr double HighLimitDraggedTo = -6; ///< V, for the negative rail

/// A morning on which the tour begins.
constexpr std::chrono::sys_seconds TourBegin{std::chrono::sys_days{std::chrono::May / 4 / 2026} +
                                             std::chrono::hours(9)};

/// A chart on the tour's own time.
strip::Clock ClockOf(const TourClock& clock) {
    return {.Steady = [&clock] { return clock.Now(); },
            .Wall =
                [&clock] {
                    return TourBegin +
                           std::chrono::duration_cast<std::chrono::system_clock::duration>(
                               clock.Now());
                }};
}

/// Sends a move of the mouse with its left button down.
void DragTo(QWidget& widget, const QPoint& at) {
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

void TurnWheel(QWidget& widget, const QPoint& at, int notches, Qt::KeyboardModifiers modifiers) {
    QWheelEvent turn(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                     modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
}

} // namespace

void Tour::ShowControlCentre() {
    Find<StripChart>(Main(), "MainStripChart").Clock(ClockOf(m_clock));
    WithModal("MsgBoxFRM", [this](QWidget& box) {
        Show(box, "initialize-question");
        Click(Find(box, "OKCMD"));
    });
    Press("Go1");
    ExpectModalDone("Go1 asks first");
    QWidget& panel = Find(Main(), "ControlCentrePanel");
    auto& gauge = Find<LinearGauge>(Main(), "limits_gauge");
    Expect(panel.isVisible(), "the control centre is on view");
    Expect(Find<QAbstractButton>(Main(), "VisStartCHK").text() == "Stop", "the monitor runs");
    Watch(70s);
    Expect(gauge.Caption().endsWith(" C"), "the gauge shows a temperature");
    Show(Main(), "control-centre-temperatures");

    auto& tabs = Find<QTabWidget>(Main(), "BargraphTab");
    tabs.tabBar()->setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    PickRow(RowFan0);
    PickRow(2);
    Watch(70s);
    Expect(gauge.Caption().endsWith(" RPM"), "the gauge shows a speed");
    Show(Main(), "control-centre-fans");

    tabs.tabBar()->setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    PickRow(Row12V);
    PickRow(1);
    Watch(70s);
    Expect(gauge.Caption().endsWith(" V"), "the gauge shows a voltage");
    Show(Main(), "control-centre-voltages");

    ShowNegativeRail();
    ShowLimitHeld();
    ShowChartTools();
}

void Tour::ShowNegativeRail() {
    auto& gauge = Find<LinearGauge>(Main(), "limits_gauge");
    PickRow(RowMinus12V);
    Watch(6s);
    Expect(gauge.Caption().startsWith("-"), "the gauge shows a negative voltage");
    const std::uint8_t before = m_board.TheChip().Read(HighLimitMinus12V);
    const GaugeGeometry& geometry = gauge.Plan();
    const QPoint from = geometry.HandleLine(gauge.Pointers().at(HighHandle)).center().toPoint();
    const QPoint to(from.x(), qRound(geometry.ToY(HighLimitDraggedTo)));
    QTest::mousePress(&gauge, Qt::LeftButton, {}, from);
    DragTo(gauge, (from + to) / 2);
    DragTo(gauge, to);
    Show(Main(), "control-centre-handle-dragged");
    QTest::mouseRelease(&gauge, Qt::LeftButton, {}, to);
    Expect(m_board.TheChip().Read(HighLimitMinus12V) < before, "the dragged limit is in the chip");
    PickRow(Row12V);
}

void Tour::ShowLimitHeld() {
    auto& gauge = Find<LinearGauge>(Main(), "limits_gauge");
    auto& lamp = Find<AlarmLamp>(Main(), "SSPanel11(8)");
    Expect(!lamp.Value(), "+12V stands within its limits");
    const std::uint8_t before = m_board.TheChip().Read(HighLimit12V);

    Main().activateWindow();
    WaitFor("the main window is active", [this] { return Main().isActiveWindow(); });
    gauge.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&gauge, Qt::Key_Tab); // from the low handle to the high one
    for (int step = 0; step < PagesBelowReading; ++step) {
        QTest::keyPress(&gauge, Qt::Key_PageDown);
    }
    Show(Main(), "control-centre-handle-held");
    QTest::keyRelease(&gauge, Qt::Key_PageDown);
    Expect(m_board.TheChip().Read(HighLimit12V) < before, "the moved limit is in the chip");
    Watch(6s);
    Expect(lamp.Value(), "the lamp of +12V is lit");
    Show(Main(), "control-centre-alarm");
}

void Tour::ShowChartTools() {
    auto& chart = Find<StripChart>(Main(), "MainStripChart");
    Watch(50s);
    chart.setFocus();
    QTest::keyClick(&chart, Qt::Key_Space);
    Expect(chart.Frozen(), "Space freezes the chart");
    Show(Main(), "chart-frozen");
    const std::chrono::nanoseconds minute = chart.TimeOnView();
    const QPoint among5V(chart.width() / 2, chart.height() * 5 / 8);
    TurnWheel(chart, among5V, 4, {});
    TurnWheel(chart, among5V, 4, Qt::ControlModifier);
    Expect(chart.TimeOnView() < minute && chart.HighOnView() < chart.YHigh(), "the wheel zooms");
    Show(Main(), "chart-zoomed");
    TurnWheel(chart, among5V, -4, Qt::ControlModifier);
    QTest::keyClick(&chart, Qt::Key_1);
    for (int step = 0; step < 12; ++step) {
        QTest::keyClick(&chart, Qt::Key_Left);
    }
    QTest::keyClick(&chart, Qt::Key_2);
    Show(Main(), "chart-cursors");
    QTest::keyClick(&chart, Qt::Key_Home);
    Expect(!chart.Frozen(), "Home is live again");
}

} // namespace tqx
