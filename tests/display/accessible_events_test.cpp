// What a screen reader is told while the program runs, as Qt hands it to the desktop.

#include "registers/bits.h"

#include <controls/alarm_lamp.h>
#include <controls/linear_gauge.h>
#include <controls/row_label.h>
#include <controls/strip_chart.h>

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace tqx {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Texts = std::vector<std::string>;

/// Hears what the program tells in the life of this object, in words.
class Listener {
public:
    Listener() {
        theListener = this;
        QAccessible::installUpdateHandler(
            [](QAccessibleEvent* event) { theListener->Hear(*event); });
    }

    ~Listener() { QAccessible::installUpdateHandler(nullptr); }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// What `control` has told since the last look.
    Texts Take(const QWidget& control) {
        Texts told;
        for (const auto& [object, text] : std::exchange(m_told, {})) {
            if (object == &control) {
                told.push_back(text);
            }
        }
        return told;
    }

private:
    void Hear(QAccessibleEvent& event) {
        if (const std::string text = InWords(event); !text.empty()) {
            m_told.emplace_back(event.object(), text);
        }
    }

    static std::string InWords(QAccessibleEvent& event) {
        const QAccessibleInterface& face = *event.accessibleInterface();
        switch (event.type()) {
        case QAccessible::NameChanged:
            return "name " + face.text(QAccessible::Name).toStdString();
        case QAccessible::DescriptionChanged:
            return "description " + face.text(QAccessible::Description).toStdString();
        case QAccessible::ValueChanged:
            return "value " + static_cast<QAccessibleValueChangeEvent&>(event)
                                  .value()
                                  .toString()
                                  .toStdString();
        case QAccessible::SelectionAdd:
            return "selected";
        case QAccessible::SelectionRemove:
            return "no longer selected";
        case QAccessible::StateChanged:
            if (static_cast<QAccessibleStateChangeEvent&>(event).changedStates().checked) {
                return face.state().checked ? "checked" : "no longer checked";
            }
            return {};
        default:
            return {};
        }
    }

    static inline Listener* theListener = nullptr;
    std::vector<std::pair<const QObject*, std::string>> m_told;
};

TEST(AccessibleEvents, ALampTellsItsAlarmOnce) {
    AlarmLamp lamp;
    lamp.setAccessibleName("Alarm of +5V");
    Listener listener;
    lamp.Value(true);
    lamp.Value(true);
    EXPECT_THAT(listener.Take(lamp), ElementsAre("name Alarm of +5V: on"));
    lamp.Value(false);
    EXPECT_THAT(listener.Take(lamp), ElementsAre("name Alarm of +5V: off"));
}

TEST(AccessibleEvents, ARowTellsThatItIsPickedAndNotThatItIsPointedAt) {
    RowLabel row("IntTemp");
    Listener listener;
    row.ForeColor(RowColour::Hovered);
    EXPECT_THAT(listener.Take(row), IsEmpty());
    row.ForeColor(RowColour::Selected);
    row.ForeColor(RowColour::SelectedAway);
    EXPECT_THAT(listener.Take(row), ElementsAre("selected"));
    row.ForeColor(RowColour::Plain);
    EXPECT_THAT(listener.Take(row), ElementsAre("no longer selected"));
}

TEST(AccessibleEvents, AGaugeTellsTheReadingUntilAHandleIsPickedAndThenTheHandle) {
    LinearGauge gauge;
    gauge.ScaleMin(-50);
    gauge.ScaleMax(100);
    for (const int handle : {LowHandle, HighHandle}) {
        gauge.PointerIndex(handle);
        gauge.PointerMouseControl(1);
        gauge.PointerInner(0);
        gauge.PointerOuter(1);
        gauge.PointerWidth(0.02);
        gauge.PointerValue(handle == LowHandle ? 10 : 60);
    }
    Listener listener;
    gauge.BarValue(31);
    gauge.BarValue(31);
    EXPECT_THAT(listener.Take(gauge), ElementsAre("value 31"));

    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(&gauge, &focus);
    EXPECT_THAT(listener.Take(gauge), ElementsAre("name Gauge, low handle", "value 10"));
    QTest::keyClick(&gauge, Qt::Key_Up);
    EXPECT_THAT(listener.Take(gauge), ElementsAre("value 11"));
    gauge.BarValue(32);
    gauge.PointerIndex(HighHandle);
    gauge.PointerValue(50);
    EXPECT_THAT(listener.Take(gauge), IsEmpty()) << "it is not the picked handle that has moved";
    gauge.PointerIndex(LowHandle);
    gauge.PointerValue(20);
    EXPECT_THAT(listener.Take(gauge), ElementsAre("value 20")) << "the program has moved it";
}

TEST(AccessibleEvents, AChartTellsWhatTheHandDoesAndNoSample) {
    StripChart chart;
    chart.YHigh(100);
    chart.CaptionIndex(2);
    chart.Caption("Internal Temp");
    chart.resize(720, 440);
    chart.show();
    chart.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&chart));
    chart.setFocus();
    const auto sample = [&chart] {
        for (std::int16_t variable = 0; variable < 17; ++variable) {
            chart.AddStripPoint(variable, 30 + variable);
        }
        chart.DrawFrame();
    };
    sample();
    Listener listener;
    sample();
    EXPECT_THAT(listener.Take(chart), IsEmpty());

    QTest::keyClick(&chart, Qt::Key_Down);
    EXPECT_THAT(listener.Take(chart),
                Contains(StartsWith("description Legend: Internal Temp, shown")));
    QTest::keyClick(&chart, Qt::Key_Return);
    EXPECT_THAT(listener.Take(chart),
                Contains(StartsWith("description Legend: Internal Temp, hidden")));
    QTest::keyClick(&chart, Qt::Key_Return);
    QTest::keyClick(&chart, Qt::Key_1);
    EXPECT_THAT(listener.Take(chart), Contains(HasSubstr("Internal Temp\t30")));
    chart.Freeze(true);
    EXPECT_THAT(listener.Take(chart), ElementsAre(StartsWith("description Frozen at")));
    sample();
    EXPECT_THAT(listener.Take(chart), IsEmpty());
    chart.CaptionIndex(0);
    chart.Caption("Temperature");
    EXPECT_THAT(listener.Take(chart), ElementsAre("name Strip chart: Temperature"));
}

TEST(AccessibleEvents, ABitTellsItsLevel) {
    BitDigit bit(0);
    bit.Caption("0");
    Listener listener;
    bit.Caption("1");
    EXPECT_THAT(listener.Take(bit), Contains("checked"));
    bit.Caption("0");
    EXPECT_THAT(listener.Take(bit), Contains("no longer checked"));
}

} // namespace
} // namespace tqx
