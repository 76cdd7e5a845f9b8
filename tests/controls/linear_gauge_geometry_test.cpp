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
