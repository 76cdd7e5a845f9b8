#include <controls/alarm_lamp.h>
#include <controls/combos.h>
#include <controls/percent_bar.h>
#include <controls/row_label.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace tqx {
namespace {

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

TEST(HandOnly, TheWheelChangesNothingEvenWithTheFocus) {
    HandCombo list;
    list.addItems({"Output", "Input"});
    HandNumber number;
    HandSlider slider;
    HandValue value;
    for (QWidget* control : std::initializer_list<QWidget*>{&list, &number, &slider, &value}) {
        control->show();
        control->setFocus();
        QWheelEvent turn(QPointF(5, 5), control->mapToGlobal(QPointF(5, 5)), {}, {0, -120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(control, &turn);
        EXPECT_EQ(control->focusPolicy(), Qt::StrongFocus);
    }
    EXPECT_EQ(list.currentIndex() + number.value() + slider.value(), 0);
    EXPECT_EQ(value.value(), 0);
}

} // namespace
} // namespace tqx
