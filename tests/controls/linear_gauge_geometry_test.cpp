#include <controls/linear_gauge_geometry.h>

#include <QStringList>

#include <cmath>
#include <gtest/gtest.h>

namespace tqx {
namespace {

constexpr GaugeTextSizes Texts{50, 60, 20, 30};
constexpr GaugeScale Degrees{-128, 127};
constexpr GaugeScale Rpm{0, 15000};
constexpr GaugeScale Minus12{-15.928, 2.428};
constexpr GaugeScale Standby{0.0172, 4.423};
constexpr GaugeScale AllScales[] = {Degrees,        Rpm,          {0.016, 3.984},
                                    {0.026, 6.634}, Minus12,      {0.062, 15.938},
                                    {0.012, 2.988}, {0.01, 2.49}, Standby};

GaugePointers TwoHandles(double low, double high) {
    GaugePointers pointers;
    pointers[0] = {{0, low, high}, 0.91, 1.0, 0.0, 1};
    pointers[1] = {{0, low, high}, 0.0, 0.12, 0.0, 1};
    pointers[LowHandle] = {{low, 0, 0}, 0.0, 1.0, 0.06, 1};
    pointers[HighHandle] = {{high, 0, 0}, 0.0, 1.0, 0.06, 1};
    return pointers;
}

GaugeGeometry Gauge(const GaugeScale& scale = Degrees, QSize size = {216, 480}) {
    return {size, scale, Texts};
}

TEST(GaugeGeometry, EveryScaleGetsRoundMarksAndItsOwnEnds) {
    struct {
        GaugeScale Scale;
        QStringList Labels;
    } const table[] = {
        {Degrees,
         {"-128", "-100", "-80", "-60", "-40", "-20", "0", "20", "40", "60", "80", "100", "127"}},
        {Rpm, {"0", "2000", "4000", "6000", "8000", "10000", "12000", "14000", "15000"}},
        {Minus12, {"-15.928", "-14", "-12", "-10", "-8", "-6", "-4", "-2", "0", "2.428"}},
        {Standby, {"0.0172", "0.5", "1.0", "1.5", "2.0", "2.5", "3.0", "3.5", "4.0", "4.423"}},
    };

    for (const auto& row : table) {
        QStringList labels;
        for (const GaugeTick& tick : ScaleTicks(row.Scale, 380, 15)) {
            if (!tick.Label.isEmpty()) {
                labels.append(tick.Label);
            }
        }
        EXPECT_EQ(labels, row.Labels) << labels.join(' ').toStdString();
    }
}

TEST(GaugeGeometry, MarksKeepTheirDistanceAtEveryHeight) {
    constexpr double LabelHeight = 15;
    for (const GaugeScale& scale : AllScales) {
        for (const double length : {60.0, 130.0, 380.0, 900.0}) {
            double lastMark = -1e9;
            double lastLabel = -1e9;
            for (const GaugeTick& tick : ScaleTicks(scale, length, LabelHeight)) {
                const double at = (tick.Value - scale.Min) / scale.Span() * length;
                EXPECT_GT(at, lastMark) << scale.Max << ", " << length;
                lastMark = at;
                if (!tick.Label.isEmpty()) {
                    EXPECT_GE(at - lastLabel, LabelHeight - 1e-9) << scale.Max << ", " << length;
                    lastLabel = at;
                }
            }
            EXPECT_DOUBLE_EQ(lastMark, length);
        }
    }
}

TEST(GaugeGeometry, AScaleTurnedUpsideDownIsEmpty) {
    EXPECT_TRUE(ScaleTicks({100, 3.984}, 380, 15).empty());
    const GaugeGeometry gauge = Gauge({100, 3.984});
    EXPECT_EQ(gauge.ToY(50), gauge.Track().bottom());
}

TEST(GaugeGeometry, ValueAndHeightAreEachOthersReverseOnTheScale) {
    for (const GaugeScale& scale : AllScales) {
        const GaugeGeometry gauge = Gauge(scale);
        const double inside = scale.Min + 0.3 * scale.Span();
        EXPECT_NEAR(gauge.ToValue(gauge.ToY(inside)), inside, 1e-9 * scale.Span());
        EXPECT_DOUBLE_EQ(gauge.ToY(scale.Max + 1), gauge.Track().top());
        EXPECT_DOUBLE_EQ(gauge.ToY(-INFINITY), gauge.Track().bottom());
    }
}

TEST(GaugeGeometry, TheBarGrowsFromItsOriginEitherWay) {
    const GaugeGeometry gauge = Gauge(Minus12);
    EXPECT_DOUBLE_EQ(gauge.Bar(0, -12).top(), gauge.ToY(0));
    EXPECT_DOUBLE_EQ(gauge.Bar(0, -12).bottom(), gauge.ToY(-12));
    EXPECT_DOUBLE_EQ(gauge.Bar(0, 2).bottom(), gauge.ToY(0));
}

TEST(GaugeGeometry, FlagsStandInsideTheSmallestGaugeAndClearOfAllElse) {
    const QSize size = GaugeGeometry::SmallestSize(Texts);
    const GaugeGeometry gauge = Gauge(Degrees, size);
    const QRectF face(QPointF(0, 0), size);
    for (const double place : {-128.0, 40.0, 127.0}) {
        const GaugePointers pointers = TwoHandles(place, place);
        const QRectF low = gauge.Flag(LowHandle, pointers[LowHandle]);
        const QRectF high = gauge.Flag(HighHandle, pointers[HighHandle]);
        EXPECT_TRUE(face.contains(low) && face.contains(high)) << place;
        EXPECT_FALSE(low.intersects(high) || low.intersects(gauge.BarColumn())) << place;
        EXPECT_FALSE(low.intersects(QRectF(gauge.Caption()))) << place;
        EXPECT_GE(low.height(), 16);
    }
}

TEST(GaugeGeometry, TheMouseMeetsThePointerThatIsThere) {
    const GaugeGeometry gauge = Gauge();
    const QRectF track = gauge.Track();
    const double low = gauge.ToY(-40);
    const double high = gauge.ToY(60);
    const double flag = track.right() + 20;

    struct {
        const char* Where;
        QPointF Point;
        std::optional<int> Pointer;
    } const table[] = {
        {"flag of the low handle", {flag, low + 10}, LowHandle},
        {"flag of the high handle", {flag, high - 10}, HighHandle},
        {"line of the low handle", {track.center().x(), low - 3}, LowHandle},
        {"line over the band", {track.left() + 2, high + 3}, HighHandle},
        {"band at the far edge", {track.right() - 2, (low + high) / 2}, 0},
        {"band at the scale's edge", {track.left() + 2, (low + high) / 2}, 1},
        {"just beside a narrow band", {track.left() - 1.5, (low + high) / 2}, 1},
        {"between the bands", {track.center().x(), (low + high) / 2}, std::nullopt},
        {"beyond the band", {track.left() + 2, low + 30}, std::nullopt},
        {"scale", {10, low}, std::nullopt},
        {"caption", QRectF(gauge.Caption()).center(), std::nullopt},
    };

    for (const auto& row : table) {
        EXPECT_EQ(gauge.PointerAt(row.Point, TwoHandles(-40, 60), std::nullopt), row.Pointer)
            << row.Where;
    }
}

TEST(GaugeGeometry, HandlesTwoPixelsApartAreBothMet) {
    const GaugeGeometry gauge = Gauge(Minus12);
    const GaugePointers pointers = TwoHandles(-12.05, -11.95);
    const double flag = gauge.Track().right() + 20;
    EXPECT_EQ(gauge.PointerAt({flag, gauge.ToY(-12.05) + 8}, pointers, {}), LowHandle);
    EXPECT_EQ(gauge.PointerAt({flag, gauge.ToY(-11.95) - 8}, pointers, {}), HighHandle);
}

TEST(GaugeGeometry, WhatIsCollapsedOrNotTheUsersIsNotMet) {
    const GaugeGeometry gauge = Gauge();
    const QPointF onFlag(gauge.Track().right() + 20, gauge.ToY(60) - 10);
    const QPointF onBand(gauge.Track().left() + 2, gauge.ToY(10));
    GaugePointers pointers = TwoHandles(-40, 60);
    pointers[HighHandle].Width = 0;
    pointers[1].Inner = pointers[1].Outer = 1;
    EXPECT_EQ(gauge.PointerAt(onFlag, pointers, std::nullopt), std::nullopt);
    EXPECT_EQ(gauge.PointerAt(onBand, pointers, std::nullopt), std::nullopt);
    pointers = TwoHandles(-40, 60);
    pointers[HighHandle].MouseControl = 0;
    EXPECT_TRUE(IsDrawn(pointers, HighHandle));
    EXPECT_EQ(gauge.PointerAt(onFlag, pointers, HighHandle), std::nullopt);
}

TEST(GaugeGeometry, AShiftedPointerIsRoundedAndKeptOnTheScale) {
    struct {
        int Pointer;
        PointerPlace From;
        double Shift;
        GaugeScale Scale;
        int Decimals;
        PointerPlace To;
    } const table[] = {
        {LowHandle, {39.84, 0, 0}, 1, Degrees, 0, {41, 0, 0}},
        {LowHandle, {1.5, 0, 0}, 1, Degrees, 0, {2, 0, 0}}, // ties to even
        {LowHandle, {100, 0, 0}, 500, Degrees, 0, {127, 0, 0}},
        {LowHandle, {0.5, 0, 0}, -9, Standby, 3, {0.0172, 0, 0}},
        {HighHandle, {2.9, 0, 0}, -0.1, {0.01, 2.49}, 3, {2.39, 0, 0}}, // from where it is seen
        {0, {0, -20, 60}, 10, Degrees, 0, {0, -10, 70}},
        {0, {0, -20, 60}, 100, Degrees, 0, {0, 47, 127}},
        {1, {0, -20, 60}, -500, Degrees, 0, {0, -128, -48}},
        {1, {0, -128, 127}, 5, Degrees, 0, {0, -128, 127}},
    };

    for (const auto& row : table) {
        const PointerPlace to = Shifted(row.Pointer, row.From, row.Shift, row.Scale, row.Decimals);
        EXPECT_NEAR(to.Value, row.To.Value, 1e-9);
        EXPECT_NEAR(to.From, row.To.From, 1e-9);
        EXPECT_NEAR(to.To, row.To.To, 1e-9);
    }
}

TEST(GaugeGeometry, AKeyStepIsRoundAndNoFinerThanTheDecimals) {
    EXPECT_DOUBLE_EQ(KeyStep(Degrees, 0), 1);
    EXPECT_DOUBLE_EQ(KeyStep(Rpm, 0), 50);
    EXPECT_DOUBLE_EQ(KeyStep({0.016, 3.984}, 3), 0.02);
    EXPECT_DOUBLE_EQ(KeyStep(Minus12, 3), 0.1);
    EXPECT_DOUBLE_EQ(KeyStep({0, 3}, 0), 1);
}

} // namespace
} // namespace tqx
