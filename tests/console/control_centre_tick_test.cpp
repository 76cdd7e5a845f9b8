#include "console/control_centre_fixture.h"
#include "control_centre/monitor_tick.h"

#include <QLocale>

#include <ostream>

namespace tqx {
namespace {

constexpr const char* VoltFeed =
    "R26 R2C R2F R2E R2D R30 R31 R32 R33 R34 R35 R36 R37 R27 R29 R2B R2A";

struct Case {
    std::int16_t Channel;
    std::int16_t Group;
    int Tab;
    std::string Traffic;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << "row " << c.Channel << ", group " << c.Group << ", tab " << c.Tab;
}

using ControlCentreTick = test::ControlCentreTest;

class TickTraffic : public test::ControlCentreTest, public testing::WithParamInterface<Case> {};

TEST_P(TickTraffic, IsGaugeChartAndLampsInBurstMode) {
    const Case& c = GetParam();
    panel->SelectedChannel = c.Channel;
    panel->StripGroup = c.Group;
    Tabs().setCurrentIndex(c.Tab);
    panel->BargraphTick();
    EXPECT_EQ(Traffic(), "burst 1 " + c.Traffic + " burst 0");
}

INSTANTIATE_TEST_SUITE_P(
    ByChannelGroupAndTab, TickTraffic,
    testing::Values(Case{3, 0, 0, "R1F R1F R28 R29 R20 R23"}, Case{0, 0, 0, "R1F R28 R29 R20 R23"},
                    Case{6, 0, 1, "R1F R28 R29 R22"},
                    Case{18, 1, 2, std::string("R2E ") + VoltFeed + " R20 R21 R23"},
                    Case{30, 1, 0, std::string("R2A ") + VoltFeed + " R20 R23"},
                    Case{14, 2, 1, "R3F R38 R39 R3A R3B R3C R3D R3E R3F R22"},
                    Case{29, 3, 1, "R29 R22"}));

TEST_F(ControlCentreTick, ShowsTheReadingOfTheChannelOnTheGauge) {
    QLocale::setDefault(QLocale(QLocale::German)); // a comma and a thousands point

    struct Reading {
        std::int16_t Row;
        std::uint8_t Register;
        std::uint8_t Byte;
        double Value;
        const char* Caption;
    };

    for (const Reading& r :
         {Reading{3, 0x1F, 0x1F, 31, " 31 C"}, Reading{4, 0x28, 0x85, -5, "-5 C"},
          Reading{7, 0x38, 0xFF, 5294, " 5294 RPM"}, Reading{31, 0x2B, 192, 3.335, " 3.335 V"},
          Reading{17, 0x2F, 55, -11.963, "-11.963 V"}}) {
        panel->SelectedChannel = r.Row;
        link->Registers[r.Register] = r.Byte;
        panel->BargraphTick();
        EXPECT_NEAR(Gauge().BarValue(), r.Value, 1e-6);
        EXPECT_EQ(Gauge().Caption(), QString::fromLatin1(r.Caption));
    }
    panel->SelectedChannel = 6;
    panel->BargraphTick();
    EXPECT_EQ(Gauge().Caption(), "-11.963 V") << "a row without a channel leaves the gauge alone";

    EXPECT_EQ(GaugeCaption(0.1, " V"), " 0.1 V");
    EXPECT_EQ(GaugeCaption(100, " V"), " 100 V");
    EXPECT_EQ(GaugeCaption(-0.0625, " V"), "-0.062 V") << "halves go to the even third decimal";
    EXPECT_EQ(GaugeCaption(-0.0004, " V"), " 0 V") << "what rounds to nothing has no sign";
    EXPECT_EQ(GaugeCaption(1e15, ""), " 1000000000000000");
    QLocale::setDefault(QLocale::c());
}

TEST_F(ControlCentreTick, ComesFromItsTimerWhileTheMonitorRuns) {
    EXPECT_FALSE(MonitorRuns());
    EXPECT_EQ(Timer("BargraphTimer").interval(), 5);
    EXPECT_EQ(Timer("GPIOTimer").interval(), 500);
    EXPECT_EQ(Timer("InterruptTimer").interval(), 500);
    Click(VisStart());
    EXPECT_TRUE(MonitorRuns());
    EXPECT_TRUE(QTest::qWaitFor([&] { return link->Calls.size() >= 14; }, 2000));
    link->Take();
    Timer("GPIOTimer").setInterval(0);
    Timer("InterruptTimer").setInterval(0);
    Timer("BargraphTimer").setInterval(60000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return link->Calls.size() >= 5; }, 2000));
    EXPECT_EQ(Traffic().find("burst"), std::string::npos);
    Click(VisStart());
    EXPECT_FALSE(MonitorRuns());
    link->Take();
    QTest::qWait(20);
    EXPECT_EQ(Traffic(), "");
}

} // namespace
} // namespace tqx
