#include "strip_chart/geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx::strip {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

constexpr Time Hour = 3600 * Second;

class StripViewHand : public testing::Test {
protected:
    View view;

    void SetUp() override {
        view.ColumnCount(600);
        view.Values({0, 50}, {-128, 125});
        view.Newest(Hour);
    }

    double Seconds(Time time) const {
        return static_cast<double>(time) / static_cast<double>(Second);
    }
};

TEST(StripGeometry, ValueStepsAreOneTwoOrFive) {
    constexpr double Gap = 34;

    struct {
        double Span, Height, Step;
    } const table[] = {{16, 340, 2}, {50, 340, 5}, {12000, 340, 2000}, {0.016, 340, 0.002}};

    for (const auto& row : table) {
        EXPECT_NEAR(ValueStep(row.Span, row.Height, Gap), row.Step, 1e-9);
    }
    EXPECT_THAT(ValueTicks({-1, 1}, 0.5),
                ElementsAre(DoubleEq(-1), DoubleEq(-0.5), DoubleEq(0), DoubleEq(0.5), DoubleEq(1)));
    EXPECT_EQ(Decimals(0.002), 3);
    EXPECT_EQ(Decimals(0.1), 1);
    EXPECT_EQ(Decimals(1), 0);
    EXPECT_EQ(Decimals(2000), 0);
}

TEST(StripGeometry, TimeTicksStandAtRoundMomentsOfTheLocalClock) {
    Wall wall;
    wall.Note(0, 100 * Hour + 7 * Second);
    const Zone zone = [](Time) { return 1800; };
    EXPECT_THAT(TimeTicks(0, 25 * Second, 10 * Second, wall, zone),
                ElementsAre(3 * Second, 13 * Second, 23 * Second));
    // On the hour of a place that is half an hour off.
    EXPECT_THAT(TimeTicks(0, Hour, Hour, wall, zone), ElementsAre(Hour / 2 - 7 * Second));
}

TEST(StripGeometry, TimeStepsAreRoundOnAClock) {
    EXPECT_EQ(TimeStep(Second * 60 / 740, 92), 10 * Second);
    EXPECT_EQ(TimeStep(Second / 1000, 92), Second) << "labels have no fractions";
    EXPECT_EQ(TimeStep(34 * Second, 92), Hour);
    EXPECT_EQ(TimeStep(Hour, 92) % (24 * Hour), 0);
}

TEST(StripWall, AClockThatIsSetAnewNamesTheRunAnew) {
    Wall wall;
    EXPECT_TRUE(wall.Note(0, 1000 * Second));
    EXPECT_FALSE(wall.Note(10 * Second, 1010 * Second + 1'000'000)) << "a drift of a millisecond";
    EXPECT_EQ(wall.At(15 * Second), 1015 * Second);
    EXPECT_TRUE(wall.Note(20 * Second, 4620 * Second)) << "put forward by an hour";
    EXPECT_EQ(wall.At(15 * Second), 4615 * Second);
}

} // namespace
} // namespace tqx::strip
