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
