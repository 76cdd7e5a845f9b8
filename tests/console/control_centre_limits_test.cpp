#include "console/control_centre_limits_fixture.h"
#include "control_centre/size_strip_bar.h"

#include <device/display_rows.h>

namespace tqx {
namespace {

using test::ControlCentreLimits;

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

TEST_F(ControlCentreLimits, ScalesFollowTheKindOfTheRow) {
    SizeStripBar sizes(Gauge(), Chart(), nullptr);
    for (int row = FirstTemperatureRow; row < RowCount; ++row) {
        SCOPED_TRACE(row);
        const RowKind kind = KindOfRow(row);
        sizes.SizeGauge(row);
        EXPECT_EQ(Gauge().PointerIndex(), kind == RowKind::Fan ? 2 : 3);
        EXPECT_EQ(Gauge().PointerDecimals(), kind == RowKind::Voltage ? 3 : 0);
        if (kind == RowKind::Voltage) {
            const Voltage& voltage = bench.Channels.VoltageOfRow(row);
            // The gauge of -12V begins a little lower than the channel, that of Ain 5 has the scale
            // of its neighbours.
            EXPECT_NEAR(Gauge().ScaleMin(), row == 25 ? 0.01 : voltage.MinVoltage,
                        row == 17 ? 0.009 : 1e-6);
            EXPECT_NEAR(Gauge().ScaleMax(), row == 25 ? 2.49 : voltage.MaxVoltage, 1e-6);
        } else {
            EXPECT_EQ(Gauge().ScaleMin(), kind == RowKind::Fan ? 0 : -128);
            EXPECT_EQ(Gauge().ScaleMax(), kind == RowKind::Fan ? 15000 : 127);
        }
    }
}

} // namespace
} // namespace tqx
