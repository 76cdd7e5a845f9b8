#include "simulator/board_window_fixture.h"

#include <QCheckBox>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;

class PinsPageTest : public test::BoardWindowTest {
protected:
    PinsPageTest() { Open("PinsPage"); }

    QString Level(int line) { return Find<QLabel>("GPIOLevelLBL", line).text(); }

    QString Use(int line) { return Find<QLabel>("GPIOUseLBL", line).text(); }
};

TEST_F(PinsPageTest, AnInputTakesTheLevelThatIsPutOnIt) {
    for (const int line : {9, 15}) {
        Click(Find<QCheckBox>("GPIOHighCHK", line));
        EXPECT_EQ(Level(line), "1");
        EXPECT_EQ(Use(line), "input");
    }
    EXPECT_EQ(Read(0x25), 0x82);
    Click(Find<QCheckBox>("GPIOHighCHK", 9));
    EXPECT_EQ(Read(0x25), 0x80);
}

TEST_F(PinsPageTest, ShowsWhatThePinsDo) {
    Write(0x07, 0xC1); // GPIO16 as an output, active high
    Write(0x23, 0x80);
    Write(0x01, 0x01); // GPIO0 and not fan 0
    Window.hide();
    Window.show();
    EXPECT_EQ(Use(16), "output");
    EXPECT_EQ(Level(16), "1");
    EXPECT_EQ(Use(0), "input");
    EXPECT_EQ(Use(1), "Fan 1");
}

TEST_F(PinsPageTest, ChassisAndWriteProtectionReachTheChip) {
    Click(Find<QCheckBox>("ChassisCHK"));
    EXPECT_EQ(Read(0x23) & 0x40, 0x40);
    Write(0x13, 0x02);
    Click(Find<QCheckBox>("WriteProtectCHK"));
    EXPECT_EQ(Read(0x13), 0x0A);
    Click(Find<QCheckBox>("WriteProtectCHK"));
    EXPECT_EQ(Read(0x13), 0x02);
}

TEST_F(PinsPageTest, AddressPinsAndBoardModeMoveTheChip) {
    BoardBus& bus = Link->PrinterPortLink().BoardBus();
    Choose(Find<QComboBox>("AddressCOMBO"), 2);
    EXPECT_EQ(bus.ReadByte(0x58, CompanyID), 0xFF);
    EXPECT_EQ(bus.ReadByte(0x5C, CompanyID), 0x41);
    Choose(Find<QComboBox>("BoardModeCOMBO"), 1);
    EXPECT_NE(bus.ReadByte(0x5C, CompanyID), 0x41);
    bus.BoardMode(true);
    EXPECT_EQ(bus.ReadByte(0x5C, CompanyID), 0x41);
}

} // namespace
} // namespace tqx
