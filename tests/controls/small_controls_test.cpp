#include <controls/alarm_lamp.h>
#include <controls/percent_bar.h>
#include <controls/row_label.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace tqx {
namespace {

TEST(AlarmLamp, TellsOfAClickAndKeepsItsState) {
    AlarmLamp lamp;
    const QSignalSpy clicked(&lamp, &AlarmLamp::clicked);
    QTest::mouseClick(&lamp, Qt::LeftButton);
    QTest::keyClick(&lamp, Qt::Key_Space);
    QTest::mouseClick(&lamp, Qt::RightButton);
    EXPECT_EQ(clicked.size(), 2);
    EXPECT_FALSE(lamp.Value());
}

TEST(AlarmLamp, LitAndDarkDifferWithoutColour) {
    AlarmLamp lamp;
    const auto shape = [&lamp] {
        return lamp.grab().toImage().convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
    };
    const QImage dark = shape();
    lamp.Value(true);
    EXPECT_NE(shape(), dark);
}

TEST(Accessibility, LampAndRowSayTheirState) {
    AlarmLamp lamp;
    lamp.setAccessibleName("Fan 0");
    const QAccessibleInterface* lampFace = QAccessible::queryAccessibleInterface(&lamp);
    EXPECT_EQ(lampFace->text(QAccessible::Name), "Fan 0: off");
    lamp.Value(true);
    EXPECT_EQ(lampFace->text(QAccessible::Name), "Fan 0: on");

    RowLabel row("IntTemp");
    QAccessibleInterface* rowFace = QAccessible::queryAccessibleInterface(&row);
    EXPECT_EQ(rowFace->text(QAccessible::Name), "IntTemp");
    row.ForeColor(RowColour::SelectedAway);
    EXPECT_TRUE(rowFace->state().selected);
    const QSignalSpy clicked(&row, &RowLabel::clicked);
    rowFace->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicked.size(), 1);
}

TEST(PercentBar, ShowsTheShareWithOneDecimal) {
    PercentBar bar;
    EXPECT_EQ(bar.text(), "0.0 %");
    bar.EndAt(1056);
    bar.StandAt(33);
    EXPECT_EQ(bar.text(), "3.1 %");
    bar.StandAt(2000);
    EXPECT_EQ(bar.value(), 1056);
    EXPECT_EQ(bar.text(), "100.0 %");
}

} // namespace
} // namespace tqx
