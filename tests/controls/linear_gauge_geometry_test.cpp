#include <controls/linear_gauge_geometry.h>

#include <QStringList>

#include <gtest/gtest.h>

namespace tqx {
namespace {

constexpr GaugeScale Degrees{-128, 127};
constexpr GaugeScale Rpm{0, 15000};
constexpr GaugeScale Minus12{-15.928, 2.428};
constexpr GaugeScale Standby{0.0172, 4.423};

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

TEST(GaugeGeometry, AKeyStepIsRoundAndNoFinerThanTheDecimals) {
    EXPECT_DOUBLE_EQ(KeyStep(Degrees, 0), 1);
    EXPECT_DOUBLE_EQ(KeyStep(Rpm, 0), 50);
    EXPECT_DOUBLE_EQ(KeyStep({0.016, 3.984}, 3), 0.02);
    EXPECT_DOUBLE_EQ(KeyStep(Minus12, 3), 0.1);
    EXPECT_DOUBLE_EQ(KeyStep({0, 3}, 0), 1);
}

} // namespace
} // namespace tqx
