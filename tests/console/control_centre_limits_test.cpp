#include "console/control_centre_limits_fixture.h"

#include <console/limit_handles.h>
#include <console/size_strip_bar.h>
#include <link/link_error.h>

#include <array>
#include <ostream>
#include <string>

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

int Count(const std::string& traffic, const std::string& part) {
    int count = 0;
    for (auto at = traffic.find(part); at != std::string::npos; at = traffic.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(ControlCentreLimits, OnThePrinterPortAreWrittenWhenTheHandleIsLetGo) {
    PutOnGauge(3, 0x69, 0, 0x68, 90);
    Drag(2, 40, false);
    EXPECT_EQ(Traffic(), "");
    QTest::mouseRelease(&Gauge(), Qt::LeftButton, Qt::NoModifier, Grip(2));
    const int low = link->Registers[0x69];
    EXPECT_NEAR(low, 40, 1);
    EXPECT_EQ(Traffic(), "W69=" + QString::number(low, 16).toUpper().toStdString() + " W68=5A");
}

TEST_F(ControlCentreLimits, OnTheSMBusAreWrittenAtEveryMove) {
    PutOnGauge(3, 0x69, 0, 0x68, 90);
    ChooseSMBus();
    Drag(2, 40, false);
    const std::string moves = Traffic();
    EXPECT_GE(Count(moves, "W69="), 4);
    EXPECT_EQ(Count(moves, "W68=5A"), Count(moves, "W69="));
    QTest::mouseRelease(&Gauge(), Qt::LeftButton, Qt::NoModifier, Grip(2));
    EXPECT_NEAR(link->Registers[0x69], 40, 1);
}

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
    EXPECT_THROW(Drag(2, 30), LinkError);
    link->FailOn.clear();
    link->Take();
    Drag(2, -20);
    EXPECT_NEAR(link->Registers[0x69] & 0x7F, 20, 1);
    EXPECT_EQ(Place(Gauge(), 2), -(link->Registers[0x69] & 0x7F));
}

TEST_F(ControlCentreLimits, ScalesFollowTheRow) {
    struct Scale {
        int Row;
        double Min;
        double Max;
        int Decimals;
    };

    const std::array<Scale, 14> scales{{{3, -128, 127, 0},
                                        {5, -128, 127, 0},
                                        {7, 0, 15000, 0},
                                        {14, 0, 15000, 0},
                                        {15, 0.016, 3.984, 3},
                                        {16, 0.026, 6.634, 3},
                                        {17, -15.928, 2.428, 3},
                                        {18, 0.062, 15.938, 3},
                                        {19, 0.012, 2.988, 3},
                                        {24, 0.012, 2.988, 3},
                                        {25, 0.01, 2.49, 3},
                                        {29, 0.01, 2.49, 3},
                                        {30, 0.0172, 4.423, 3},
                                        {31, 0.0172, 4.423, 3}}};
    SizeStripBar sizes(Gauge(), Chart(), nullptr);
    for (const Scale& scale : scales) {
        sizes.SizeGauge(scale.Row);
        const bool fan = scale.Row == 7 || scale.Row == 14;
        EXPECT_EQ(Gauge().PointerIndex(), fan ? 2 : 3) << scale.Row;
        EXPECT_EQ(Gauge().PointerDecimals(), scale.Decimals) << scale.Row;
        EXPECT_EQ(Gauge().ScaleMin(), scale.Min) << scale.Row;
        EXPECT_EQ(Gauge().ScaleMax(), scale.Max) << scale.Row;
        for (const int pointer : {0, 1, 3}) {
            Gauge().PointerIndex(pointer);
            EXPECT_EQ(Gauge().PointerMouseControl(), fan ? 0 : 1) << scale.Row << " " << pointer;
            EXPECT_EQ(Gauge().PointerInner() == Gauge().PointerOuter(), fan) << scale.Row;
        }
        EXPECT_EQ(Gauge().PointerFlagA(), !fan);
        EXPECT_EQ(Gauge().PointerFlagB(), !fan);
    }
}

} // namespace
} // namespace tqx
