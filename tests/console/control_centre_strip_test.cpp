#include "console/control_centre_fixture.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tqx {
namespace {

class ControlCentreStrip : public test::ControlCentreTest {
protected:
    std::vector<std::string> Captions() {
        std::vector<std::string> captions;
        for (int caption = 0; caption <= 18; ++caption) {
            Chart().CaptionIndex(caption);
            captions.push_back(Chart().Caption().toStdString());
        }
        return captions;
    }

    std::array<double, 4> YRange() {
        return {Chart().YFloor(), Chart().YLow(), Chart().YHigh(), Chart().YCeiling()};
    }
};

TEST_F(ControlCentreStrip, EachGroupBringsItsRangeTitleAndLegendsAndLeavesNoneBehind) {
    struct {
        const char* Title;
        const char* FirstLegend;
        int Legends;
        std::array<double, 4> Range;
    } const groups[] = {
        {"Temperature", "Internal Temp", 3, {-128, 0, 50, 125}},
        {"Voltage", "Vbatt", 15, {0, 0, 16, 16}},
        {"RPM", "Fan 0", 8, {2000, 3000, 15000, 15000}},
    };

    panel->SetUpDisplay();
    for (const int row : {0, 1, 2, 2, 0, 2, 1, 1, 0}) {
        Click(Row(row));
        const std::vector<std::string> captions = Captions();
        EXPECT_EQ(captions.at(0), groups[row].Title);
        EXPECT_EQ(captions.at(2), groups[row].FirstLegend);
        EXPECT_EQ(std::count(captions.begin() + 2, captions.end(), ""), 17 - groups[row].Legends);
        EXPECT_EQ(YRange(), groups[row].Range);
    }
}

TEST_F(ControlCentreStrip, TheTwo33VoltLegendsAreDecidedCrosswise) {
    Row(30).hide();
    Click(Row(1));
    EXPECT_EQ(Captions().at(17), "") << "3.3V Main goes by the row of the standby rail";
    EXPECT_EQ(Captions().at(18), "3.3V STBY");
    Row(30).show();
    Row(31).hide();
    Click(Row(1));
    EXPECT_EQ(Captions().at(17), "3.3V Main");
    EXPECT_EQ(Captions().at(18), "");
}

TEST_F(ControlCentreStrip, EachPointGoesToTheTraceOfItsChannelThatWithoutALegendToo) {
    panel->StripGroup = 1;
    panel->SetUpDisplay();
    link->Registers[0x37] = 0xC0;
    panel->BargraphTick();
    ASSERT_EQ(Captions().at(15), "");
    EXPECT_TRUE(Chart().LatestText().contains("Ain 6 0.02, Ain 7 1.877, Ain 8 0.02, Ain 9 0.02"))
        << Chart().LatestText().toStdString();
}

} // namespace
} // namespace tqx
