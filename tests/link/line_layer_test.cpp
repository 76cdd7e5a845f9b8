#include "link/bus_phases.h"
#include "support/scripted_board.h"
#include "support/scripted_line_port.h"

#include <link/line_layer.h>
#include <link/short_wait.h>

#include <chrono>
#include <gtest/gtest.h>
#include <string>

namespace tqx {
namespace {

using test::BusPhases;
using namespace std::chrono_literals;

/// Every operation on both wirings.
class Lines : public testing::TestWithParam<bool> {
protected:
    test::ScriptedBoard board{WiringOf(GetParam())};
    test::ScriptedLinePort port{board};
    LinkSetup setup;
    LineLayer lines{port, WiringOf(GetParam()), setup};
    BusPhases expected{GetParam()};
};

TEST_P(Lines, PutOutTheStatesOfEachOperation) {
    lines.LineStart();
    lines.ClockOutByte(0xA5);
    lines.ClockAck();
    lines.ReleaseLines();
    lines.LineStart();
    lines.ClockInByte();
    lines.SendAck();
    lines.ClockInByte();
    lines.ClockNack();
    lines.LineStop();
    EXPECT_EQ(board.TakeAccesses(), std::string(expected.Start()
                                                    .Acknowledged({0xA5})
                                                    .Release()
                                                    .Start()
                                                    .ByteIn()
                                                    .Ack()
                                                    .ByteIn()
                                                    .Nack()
                                                    .Stop()));
}

TEST_P(Lines, CarryBytesBothWays) {
    board.ToSend = {0x41, 0x80, 0x01};
    lines.LineStart();
    lines.ClockOutByte(0x59);
    EXPECT_FALSE(lines.ClockAck());
    EXPECT_EQ(lines.ClockInByte(), 0x41);
    lines.SendAck();
    EXPECT_EQ(lines.ClockInByte(), 0x80);
    lines.SendAck();
    EXPECT_EQ(lines.ClockInByte(), 0x01);
    lines.ClockNack();
    lines.LineStop();
    EXPECT_EQ(board.TakeBus(), "S 59+ 41+ 80+ 01- P");
}

TEST_P(Lines, ShowAMissingAcknowledgeAsAHighDataLine) {
    board.Answers = false;
    lines.LineStart();
    lines.ClockOutByte(0x58);
    EXPECT_TRUE(lines.ClockAck());
}

TEST_P(Lines, AreCarriedByTheControlBitsWhichAStartSets) {
    lines.ReleaseLines();
    EXPECT_EQ(board.TakeAccesses(), std::string(expected.Release()));
    lines.ControlBits = 0;
    lines.LineStart();
    EXPECT_EQ(lines.ControlBits, 0xB0);
    EXPECT_EQ(board.TakeAccesses(), std::string(BusPhases(GetParam()).Start()));
}

TEST_P(Lines, KeepTheBusNearAndNeverAbove100kHz) {
    setup.BitDelayCount = 100;
    lines.ClockOutByte(0x00);
    EXPECT_GE(board.Delayed, 8 * 10us);
    EXPECT_LE(board.Delayed, 8 * 10.5us);
    board.Delayed = 0ns;
    setup.BitDelayCount = 0;
    lines.LineStop();
    EXPECT_EQ(board.Delayed, 2 * BitDelayRound);
}

TEST(ShortWait, TakesAtLeastItsTime) {
    const auto before = std::chrono::steady_clock::now();
    ShortWait(300us);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 300us);
}

INSTANTIATE_TEST_SUITE_P(OnBothWirings, Lines, testing::Bool());

} // namespace
} // namespace tqx
