#include "console/control_centre_fixture.h"

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

TEST_F(ControlCentreStrip, EachGroupBringsItsRangeTitleAndLegends) {
    using Texts = std::vector<std::string>;
    using Range = std::array<double, 4>;
    const auto padded = [](Texts captions) {
        captions.resize(19);
        return captions;
    };
    const Texts temperatures =
        padded({"Temperature", "Time=", "Internal Temp", "External Temp 0", "External Temp 1"});
    const Texts voltages{"Voltage", "Time=", "Vbatt", "+5V",       "-12V",     "+12V",  "Vccp",
                         "Ain 0",   "Ain 1", "Ain 2", "Ain 3",     "Ain 4",    "Ain 5", "Ain 6",
                         "Ain 7",   "",      "",      "3.3V Main", "3.3V STBY"};
    const Texts fans = padded(
        {"RPM", "Time=", "Fan 0", "Fan 1", "Fan 2", "Fan 3", "Fan 4", "Fan 5", "Fan 6", "Fan 7"});
    panel->SetUpDisplay();
    for (const int row : {0, 1, 2, 2, 0, 2, 1, 1, 0}) {
        Click(Row(row));
        EXPECT_EQ(Captions(), row == 0 ? temperatures : row == 1 ? voltages : fans);
        EXPECT_EQ(YRange(), row == 0   ? (Range{-128, 0, 50, 125})
                            : row == 1 ? (Range{0, 0, 16, 16})
                                       : (Range{2000, 3000, 15000, 15000}));
    }
}

TEST_F(ControlCentreStrip, LegendsTakeTheColoursOfTheirTraces) {
    Click(Row(2));
    for (int variable = 0; variable < 8; ++variable) {
        Chart().VariableIndex(variable);
        Chart().CaptionIndex(2 + variable);
        EXPECT_EQ(Chart().CaptionColor(), Chart().VariableColor()) << variable;
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

TEST_F(ControlCentreStrip, AChannelWithoutALegendLineIsReadOutUnderItsName) {
    panel->StripGroup = 1;
    panel->SetUpDisplay();
    panel->BargraphTick();
    ASSERT_EQ(Captions().at(15), "");
    EXPECT_TRUE(Chart().LatestText().contains("Ain 7 0.02, Ain 8 0.02, Ain 9 0.02"))
        << Chart().LatestText().toStdString();
}

} // namespace
} // namespace tqx
