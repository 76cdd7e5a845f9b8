#include "console/control_centre_fixture.h"

#include <device/display_rows.h>

#include <array>
#include <vector>

namespace tqx {
namespace {

class ControlCentreRows : public test::ControlCentreTest {
protected:
    std::vector<int> VisibleRows(int first, int last) {
        std::vector<int> rows;
        for (int row = first; row <= last; ++row) {
            if (!Row(row).isHidden()) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    QString LegendOf(int variable) {
        Chart().CaptionIndex(2 + variable);
        return Chart().Caption();
    }
};

TEST_F(ControlCentreRows, AClickLoadsTheLimitsAndStartsTheMonitor) {
    link->Registers[0x4F] = 0x1A;
    link->Registers[0x47] = 0xE5;
    Tabs().setCurrentIndex(2);
    Click(Row(17));
    EXPECT_EQ(Traffic(), "R4F R47");
    EXPECT_TRUE(MonitorRuns());
    EXPECT_EQ(panel->SelectedChannel, 17);
    Gauge().PointerIndex(2);
    EXPECT_NEAR(Gauge().PointerValue(), -14.049, 0.001);
    Gauge().PointerIndex(3);
    EXPECT_NEAR(Gauge().PointerValue(), 0.557, 0.001);
    Gauge().PointerIndex(1);
    EXPECT_NEAR(Gauge().PointerFrom(), -14.049, 0.001) << "the bands span the limits";
    EXPECT_NEAR(Gauge().PointerTo(), 0.557, 0.001);

    Click(Row(2));
    EXPECT_EQ(Traffic(), "");
    EXPECT_EQ(panel->StripGroup, 2);
    EXPECT_EQ(Child<QLabel>("ChannelName").text(), "-12V") << "a heading is no channel";
    EXPECT_EQ(panel->SelectedChannel, 17);
    Chart().CaptionIndex(0);
    EXPECT_EQ(Chart().Caption(), "RPM");
}

TEST_F(ControlCentreRows, HaveTheirLampBesideThem) {
    constexpr std::array lamps{0, 2, 3,  4,  20, 1,  21, 22, 23, 24, 25, 26, 5,  6, 7,
                               8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 27, 28};
    link->Registers[0x00] = 0x08; // "Ain 8" and "Ain 9"
    panel->SetUpDisplay();
    for (int row = FirstTemperatureRow; row < RowCount; ++row) {
        SCOPED_TRACE(row);
        if (Row(row).isHidden()) {
            continue;
        }
        AlarmLamp& lamp = Lamp(lamps.at(static_cast<std::size_t>(row - FirstTemperatureRow)));
        ASSERT_EQ(lamp.parentWidget(), Row(row).parentWidget());
        Tabs().setCurrentWidget(lamp.parentWidget());
        QCoreApplication::processEvents();
        EXPECT_NEAR(lamp.geometry().center().y(), Row(row).geometry().center().y(), 1);
    }
}

TEST_F(ControlCentreRows, FollowThePinConfiguration) {
    link->Registers[0x01] = 0b1000'0101;
    link->Registers[0x00] = 0x08;
    link->Registers[0x07] = 0x01;
    panel->StripGroup = 1;
    panel->SetUpDisplay();
    EXPECT_EQ(Traffic(), "R1 R0 R7");
    EXPECT_EQ(VisibleRows(7, 14), (std::vector<int>{8, 10, 11, 12, 13}));
    EXPECT_EQ(VisibleRows(3, 6), (std::vector<int>{3, 4}));
    EXPECT_EQ(VisibleRows(28, 29), (std::vector<int>{28, 29}));
    EXPECT_TRUE(Lamp(20).isHidden());
    EXPECT_FALSE(Lamp(1).isHidden());
    EXPECT_TRUE(Lamp(26).isHidden());
    EXPECT_TRUE(Lamp(3).isHidden());
    EXPECT_FALSE(Lamp(18).isHidden());
    EXPECT_FALSE(GPIO(0).isHidden());
    EXPECT_TRUE(GPIO(1).isHidden());
    EXPECT_FALSE(GPIO(7).isHidden());
    EXPECT_FALSE(GPIO(16).isHidden());
    EXPECT_EQ(LegendOf(14), "Ain 9");

    link->Registers[0x01] = link->Registers[0x00] = link->Registers[0x07] = 0;
    panel->SetUpDisplay();
    EXPECT_EQ(VisibleRows(7, 14).size(), 8U);
    EXPECT_EQ(VisibleRows(3, 6), (std::vector<int>{3, 4, 5}));
    EXPECT_TRUE(VisibleRows(28, 29).empty());
    EXPECT_FALSE(Lamp(3).isHidden());
    EXPECT_TRUE(Lamp(19).isHidden());
    EXPECT_TRUE(GPIO(16).isHidden());
    EXPECT_FALSE(GPIO(8).isHidden());
    EXPECT_EQ(LegendOf(13), "");
    EXPECT_EQ(LegendOf(14), "");
    EXPECT_EQ(LegendOf(15), "3.3V Main") << "the legend lines do not close up";
}

} // namespace
} // namespace tqx
