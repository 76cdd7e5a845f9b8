#include "console/control_centre_limits_fixture.h"
#include "control_centre/limit_handles.h"
#include "control_centre/size_strip_bar.h"

#include <device/display_rows.h>

#include <ostream>

namespace tqx {
namespace {

using test::ControlCentreLimits;
using test::Place;
using test::Put;

struct RuleCase {
    int Row;     ///< whose scale is on the gauge
    int Pointer; ///< the handle that was moved
    double Low;
    double High;
    double LowAfter;
    double HighAfter;
};

std::ostream& operator<<(std::ostream& out, const RuleCase& c) {
    return out << "row " << c.Row << ", pointer " << c.Pointer << ": " << c.Low << " to " << c.High;
}

class HandleRule : public test::ControlCentreTest, public testing::WithParamInterface<RuleCase> {};

TEST_P(HandleRule, ThrowsACrossedHandleBackAndSpansTheBands) {
    const RuleCase& c = GetParam();
    LinearGauge& gauge = Gauge();
    SizeStripBar(gauge, Chart(), nullptr).SizeGauge(c.Row);
    Put(gauge, 2, c.Low);
    Put(gauge, 3, c.High);
    gauge.PointerIndex(c.Pointer);
    LimitHandles(bench, gauge, *panel).AdjustBargraphHandlesETC();
    EXPECT_NEAR(Place(gauge, 2), c.LowAfter, 1e-9);
    EXPECT_NEAR(Place(gauge, 3), c.HighAfter, 1e-9);
    for (const int band : {0, 1}) {
        gauge.PointerIndex(band);
        EXPECT_NEAR(gauge.PointerFrom(), c.LowAfter, 1e-9);
        EXPECT_NEAR(gauge.PointerTo(), c.HighAfter, 1e-9);
    }
    EXPECT_EQ(Traffic(), "");
}

INSTANTIATE_TEST_SUITE_P(
    ByScale, HandleRule,
    testing::Values(RuleCase{3, 2, 44.92, 50, 44.92, 50}, RuleCase{3, 2, 45, 50, 39.84, 50},
                    RuleCase{3, 3, 45, 50, 45, 50}, RuleCase{3, 3, 45, 49, 45, 55},
                    // the high rule works in whole numbers: coarse on a voltage gauge
                    RuleCase{19, 3, 2.6, 2.4, 2.6, 3}, RuleCase{19, 3, 2.7, 2.9, 2.7, 2.9},
                    RuleCase{19, 2, 2.7, 2.9, 2.7, 2.9}, RuleCase{19, 2, 2.8, 2.9, 2.661, 2.9},
                    RuleCase{19, 2, 2.79, 2.9, 2.661, 2.9},
                    // a half goes to the even whole number, below zero too
                    RuleCase{18, 3, 2.5, 2.5, 2.5, 3}, RuleCase{18, 3, 3.5, 2.5, 3.5, 5},
                    RuleCase{17, 3, -2.5, -3.4, -2.5, -2},
                    // nothing keeps a thrown handle on the scale
                    RuleCase{3, 3, 120, 118, 120, 130}, RuleCase{3, 2, -125, -126, -136.16, -126}));

TEST_F(ControlCentreLimits, OfAVoltageGoOutAsCounts) {
    PutOnGauge(18, 0x4E, 27, 0x46, 230);
    Row(18).clearFocus();
    Gauge().MoveByHand(3, 12.5);
    EXPECT_EQ(Traffic(), "W4E=1C W46=C9") << "the low limit reads back with its range's lower end";
    Gauge().MoveByHand(2, 0.5);
    EXPECT_EQ(Traffic(), "W4E=8 W46=C9");
}

TEST_F(ControlCentreLimits, OfAFanGiveWayToTwoHandlesAndBothBandsAgain) {
    PutOnGauge(7, 0x60, 0xFF, 0x60, 0xFF);
    for (const int pointer : {0, 1, 3}) {
        EXPECT_FALSE(IsDrawn(Gauge().Pointers(), pointer)) << pointer;
        EXPECT_FALSE(IsDraggable(Gauge().Pointers(), pointer)) << pointer;
    }
    PutOnGauge(3, 0x69, 10, 0x68, 60);
    for (const int pointer : {0, 1, 2, 3}) {
        EXPECT_TRUE(IsDrawn(Gauge().Pointers(), pointer)) << pointer;
        EXPECT_TRUE(IsDraggable(Gauge().Pointers(), pointer)) << pointer;
    }
    Gauge().PointerIndex(1);
    EXPECT_EQ(Gauge().PointerFrom(), 10);
    EXPECT_EQ(Gauge().PointerTo(), 60);
}

TEST_F(ControlCentreLimits, MoveWithTheKeyboardAndSettleWhenTheKeyComesUp) {
    PutOnGauge(3, 0x69, 0, 0x68, 90);
    Gauge().setFocus(Qt::TabFocusReason);
    while (Gauge().PickedPointer() != 3) {
        QTest::keyClick(&Gauge(), Qt::Key_Tab);
        ASSERT_TRUE(Gauge().hasFocus()) << "no key leads to the high handle";
    }
    QTest::keyPress(&Gauge(), Qt::Key_Up);
    EXPECT_EQ(Traffic(), "");
    QTest::keyRelease(&Gauge(), Qt::Key_Up);
    EXPECT_EQ(Traffic(), "W69=0 W68=5B");
}

TEST_F(ControlCentreLimits, AreNotWrittenBeforeTheFirstEntryIsDone) {
    PutOnGauge(3, 0x69, 0, 0x68, 90);
    panel->ControlCentreReady = false;
    Gauge().MoveByHand(2, 20);
    EXPECT_EQ(Traffic(), "");
    ChooseSMBus();
    Gauge().MoveByHand(2, 30);
    EXPECT_EQ(Traffic(), "");
}

TEST_F(ControlCentreLimits, AFailedWriteLeavesTheHandleFreeForTheNextTry) {
    PutOnGauge(3, 0x69, 0, 0x68, 90);
    link->FailOn = "BoardBus.WriteByte";
    Drag(2, 30);
    EXPECT_EQ(recorded.TakeFailures(), 1);
    link->FailOn.clear();
    link->Take();
    Drag(2, -20);
    EXPECT_NEAR(link->Registers[0x69] & 0x7F, 20, 1);
    EXPECT_EQ(Place(Gauge(), 2), -(link->Registers[0x69] & 0x7F));
}

TEST_F(ControlCentreLimits, ScalesFollowTheKindOfTheRow) {
    struct {
        int Row;
        double Min;
        double Max;
        int Decimals;
    } const table[] = {
        {6, -128, 127, 0},     {7, 0, 15000, 0},    {14, 0, 15000, 0},      {17, -15.928, 2.428, 3},
        {24, 0.012, 2.988, 3}, {25, 0.01, 2.49, 3}, {31, 0.0172, 4.423, 3},
    };

    SizeStripBar sizes(Gauge(), Chart(), nullptr);
    for (const auto& row : table) {
        sizes.SizeGauge(row.Row);
        EXPECT_EQ(Gauge().PointerIndex(), KindOfRow(row.Row) == RowKind::Fan ? 2 : 3) << row.Row;
        EXPECT_EQ(Gauge().PointerDecimals(), row.Decimals) << row.Row;
        EXPECT_EQ(Gauge().ScaleMin(), row.Min) << row.Row;
        EXPECT_EQ(Gauge().ScaleMax(), row.Max) << row.Row;
    }
}

} // namespace
} // namespace tqx
