#include "console/control_centre_fixture.h"

#include <QSignalSpy>

#include <vector>

namespace tqx {
namespace {

class ControlCentreLamps : public test::ControlCentreTest {
protected:
    std::vector<int> Lit() {
        std::vector<int> lit;
        for (int lamp = 0; lamp <= 30; ++lamp) {
            if (lamp != 29 && Lamp(lamp).Value()) {
                lit.push_back(lamp);
            }
        }
        return lit;
    }

    /// The lamps that a pass of `tab` lights for one bit of one register, all being dark before.
    std::vector<int> LitBy(int tab, std::uint8_t reg, int bit) {
        for (const std::uint8_t status : {0x20, 0x21, 0x22, 0x23}) {
            link->Registers[status] = 0;
        }
        for (const int other : {0, 1, 2, tab}) {
            Tabs().setCurrentIndex(other);
            panel->InterruptTick();
        }
        link->Registers[reg] = static_cast<std::uint8_t>(1U << bit);
        panel->InterruptTick();
        return Lit();
    }
};

TEST_F(ControlCentreLamps, FollowTheBitsOfTheTabOnView) {
    using Lamps = std::vector<int>;
    const std::vector<Lamps> voltOfStatus1{{2}, {3, 19}, {27}, {28}, {6}, {9}, {8}, {7}};
    for (int bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(LitBy(2, 0x20, bit), voltOfStatus1.at(bit)) << bit;
        EXPECT_EQ(LitBy(2, 0x21, bit), Lamps{10 + bit}) << bit;
        EXPECT_EQ(LitBy(2, 0x22, bit), Lamps{}) << "fans stand still on the voltage tab";
    }
    const std::vector<Lamps> voltOfStatus4{{0}, {5}, {18}, {}, {}, {}, {30}, {}};
    const std::vector<Lamps> tempOfStatus4{{0}, {5}, {}, {}, {}, {}, {30}, {}};
    for (int bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(LitBy(2, 0x23, bit), voltOfStatus4.at(bit)) << bit;
        EXPECT_EQ(LitBy(0, 0x23, bit), tempOfStatus4.at(bit)) << bit;
    }
    EXPECT_EQ(LitBy(0, 0x20, 1), (Lamps{3, 19})) << "hidden or on another tab, both are written";
    EXPECT_EQ(LitBy(0, 0x20, 0), Lamps{2});
    const Lamps fans{20, 1, 21, 22, 23, 24, 25, 26};
    for (int bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(LitBy(1, 0x22, bit), Lamps{fans.at(bit)}) << bit;
    }
}

TEST_F(ControlCentreLamps, AClickOnTheChassisAlarmPulsesItsBitAlone) {
    Tabs().setCurrentIndex(2);
    link->KeepWrites = false;
    link->Registers[0x07] = 0x81;
    QWidget& text = Child<QWidget>("CITXT");
    Click(text);
    EXPECT_EQ(Traffic(), "R7 W7=83 W7=81");
    link->Registers[0x07] = 0x02;
    Lamp(30).Value(true);
    Click(Lamp(30));
    EXPECT_EQ(Traffic(), "R7 W7=2 W7=0");
    EXPECT_TRUE(Lamp(30).Value()) << "the lamp follows the chip, not the click";
    QTest::keyClick(&text, Qt::Key_Space);
    EXPECT_EQ(Traffic(), "R7 W7=2 W7=0");
    Click(Lamp(7));
    EXPECT_EQ(Traffic(), "");
    link->FailOn = "BoardBus.WriteByte";
    Click(text);
    EXPECT_EQ(recorded.TakeFailures(), 1);
    link->FailOn.clear();
    Click(text);
    EXPECT_EQ(Traffic(), "R7 W7=2 R7 W7=2 W7=0");
}

TEST_F(ControlCentreLamps, GPIODigitsFollowTheRawLevels) {
    link->Registers[0x24] = 0xA5;
    link->Registers[0x25] = 0x80;
    link->Registers[0x23] = 0x7F;
    panel->SetUpDisplay(); // hides the digits 0 to 7, which are written all the same
    panel->GPIOTick();
    QString digits;
    for (int line = 0; line <= 16; ++line) {
        digits += GPIO(line).text();
    }
    EXPECT_EQ(digits, "10100101000000010");
    link->Registers[0x23] = 0x80;
    panel->GPIOTick();
    EXPECT_EQ(GPIO(16).text(), "1");
    EXPECT_EQ(GPIO(33).text(), "--");
}

} // namespace
} // namespace tqx
