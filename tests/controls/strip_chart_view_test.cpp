#include "strip_chart/geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

constexpr StripTime Hour = 3600 * StripSecond;

class StripViewHand : public testing::Test {
protected:
    StripView view;

    void SetUp() override {
        view.ColumnCount(600);
        view.Values({0, 50}, {-128, 125});
        view.Newest(Hour);
    }

    double Seconds(StripTime time) const {
        return static_cast<double>(time) / static_cast<double>(StripSecond);
    }
};

TEST_F(StripViewHand, FollowsTheNewestSampleByWholeColumns) {
    const std::int64_t first = view.Columns().First;
    view.Newest(Hour + StripSecond / 20);
    EXPECT_EQ(view.Columns().First, first);
    view.Newest(Hour + StripSecond / 10);
    EXPECT_EQ(view.Columns().First, first + 1);
}

TEST_F(StripViewHand, AFrozenViewStandsUntilItIsLetGo) {
    const StripTime begin = view.Begin();
    view.Freeze(true);
    view.Newest(Hour + 30 * StripSecond);
    EXPECT_EQ(view.Begin(), begin);
    view.PanTime(10'000);
    EXPECT_FALSE(view.Following());
    view.ZoomTimeAtEdge(0.5);
    view.Freeze(false);
    EXPECT_TRUE(view.Following());
    EXPECT_EQ(view.Span(), 30 * StripSecond);
    EXPECT_NEAR(Seconds(view.End()), 3630, 0.1);
}

TEST_F(StripViewHand, TimeZoomsAboutThePointerAndFollowsWhileTheNewestSampleIsOnView) {
    const auto pointer = [this] { return Seconds(view.Begin() + (view.End() - view.Begin()) / 4); };
    const double before = pointer();
    view.ZoomTime(0.5, 0.25);
    EXPECT_EQ(view.Span(), 30 * StripSecond);
    EXPECT_NEAR(pointer(), before, 0.11);
    EXPECT_FALSE(view.Following());
    view.ZoomTime(4, 0.25);
    EXPECT_TRUE(view.Following());
    view.PanTime(-1'000'000'000);
    EXPECT_NEAR(Seconds(view.Begin()), -60, 0.11) << "the first sample stays on view";
}

TEST_F(StripViewHand, SpansStayWithinTheirBounds) {
    view.ZoomTime(1e-12, 0.5);
    EXPECT_EQ(view.Span(), StripView::ShortestSpan);
    view.ZoomTime(1e12, 0.5);
    EXPECT_EQ(view.Span(), StripView::LongestSpan);
}

TEST_F(StripViewHand, TheWholeRunStaysOnViewAndChangesItsScaleSeldom) {
    view.ShowWholeRun();
    int scales = 0;
    StripTime width = 0;
    for (StripTime newest = Hour; newest < 100 * Hour; newest += 7 * StripSecond) {
        view.Newest(newest);
        ASSERT_LE(view.Begin(), 0);
        ASSERT_GT(view.End(), newest);
        scales += view.Columns().Width != width ? 1 : 0;
        width = view.Columns().Width;
    }
    EXPECT_LT(scales, 45);
}

TEST_F(StripViewHand, ValuesZoomAboutThePointerWithinTheOuterRange) {
    view.ZoomValues(0.5, 10);
    EXPECT_EQ(view.Values(), (StripRange{5, 30}));
    view.ZoomValues(1000, 10);
    EXPECT_EQ(view.Values(), (StripRange{-128, 125}));
    view.ZoomValues(1e-9, 10);
    EXPECT_NEAR(view.Values().Span(), 0.253, 1e-6);
    view.PanValues(1e9);
    EXPECT_DOUBLE_EQ(view.Values().High, 125);
    view.Live();
    EXPECT_EQ(view.Values(), (StripRange{0, 50}));
}

TEST_F(StripViewHand, AnUpsideDownRangeIsStillOneToDrawIn) {
    view.Values({15000, 3000}, {2000, 125});
    EXPECT_GT(view.Values().Span(), 0);
    EXPECT_LE(view.OuterValues().Low, view.Values().Low);
}

TEST(StripGeometry, ValueStepsAreOneTwoOrFive) {
    constexpr double Gap = 34;

    struct {
        double Span, Height, Step;
    } const table[] = {{16, 340, 2}, {50, 340, 5}, {12000, 340, 2000}, {0.016, 340, 0.002}};

    for (const auto& row : table) {
        EXPECT_NEAR(StripValueStep(row.Span, row.Height, Gap), row.Step, 1e-9);
    }
    EXPECT_THAT(StripValueTicks({-1, 1}, 0.5),
                ElementsAre(DoubleEq(-1), DoubleEq(-0.5), DoubleEq(0), DoubleEq(0.5), DoubleEq(1)));
    EXPECT_EQ(StripDecimals(0.002), 3);
    EXPECT_EQ(StripDecimals(2000), 0);
}

TEST(StripGeometry, TimeTicksStandAtRoundMomentsOfTheLocalClock) {
    StripWall wall;
    wall.Note(0, 100 * Hour + 7 * StripSecond);
    const StripZone zone = [](StripTime) { return 1800; };
    EXPECT_THAT(StripTimeTicks(0, 25 * StripSecond, 10 * StripSecond, wall, zone),
                ElementsAre(3 * StripSecond, 13 * StripSecond, 23 * StripSecond));
    // On the hour of a place that is half an hour off.
    EXPECT_THAT(StripTimeTicks(0, Hour, Hour, wall, zone), ElementsAre(Hour / 2 - 7 * StripSecond));
}

TEST(StripGeometry, TimeStepsAreRoundOnAClock) {
    EXPECT_EQ(StripTimeStep(StripSecond * 60 / 740, 92), 10 * StripSecond);
    EXPECT_EQ(StripTimeStep(StripSecond / 1000, 92), StripSecond / 10);
    EXPECT_EQ(StripTimeStep(34 * StripSecond, 92), Hour);
    EXPECT_EQ(StripTimeStep(Hour, 92) % (24 * Hour), 0);
}

TEST(StripWall, AClockThatIsSetAnewRenamesNothingThatWasRecorded) {
    StripWall wall;
    wall.Note(0, 1000 * StripSecond);
    wall.Note(10 * StripSecond, 1010 * StripSecond + 1'000'000); // drift of a millisecond
    EXPECT_EQ(wall.Stretches().size(), 1U);
    wall.Note(20 * StripSecond, 4620 * StripSecond); // put forward by an hour
    EXPECT_EQ(wall.At(15 * StripSecond), 1015 * StripSecond);
    EXPECT_EQ(wall.At(25 * StripSecond), 4625 * StripSecond);
    const StripZone utc = [](StripTime) { return 0; };
    EXPECT_THAT(StripTimeTicks(14 * StripSecond, 26 * StripSecond, 5 * StripSecond, wall, utc),
                ElementsAre(15 * StripSecond, 20 * StripSecond, 25 * StripSecond));
}

} // namespace
} // namespace tqx
