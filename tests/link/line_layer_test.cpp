#include "link/bus_phases.h"
#include "printer_port/line_layer.h"
#include "support/scripted_board.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using namespace test::phases;

/// Every operation on both wirings.
class Lines : public testing::TestWithParam<bool> {
protected:
    test::ScriptedBoard board{GetParam()};
    LinkSetup setup;
    LineLayer lines{board, WiringOf(GetParam()), setup};
};

INSTANTIATE_TEST_SUITE_P(OnBothWirings, Lines, testing::Bool());

TEST_P(Lines, PutOutTheStatesOfEachOperationAndCarryBytesBothWays) {
    board.ToSend = {0x41, 0x80};
    lines.ReleaseLines();
    lines.LineStart();
    lines.ClockOutByte(0xA5);
    EXPECT_FALSE(lines.ClockAck());
    EXPECT_EQ(lines.ClockInByte(), 0x41);
    lines.SendAck();
    EXPECT_EQ(lines.ClockInByte(), 0x80);
    lines.ClockNack();
    lines.LineStop();
    EXPECT_EQ(board.TakeAccesses(),
              Release + Start + Out({0xA5}) + ByteIn + Ack + ByteIn + Nack + Stop);
    EXPECT_EQ(board.TakeBus(), "S A5+ 41+ 80- P");
}

TEST_P(Lines, AreCarriedByTheControlBitsWhichAStartSets) {
    lines.ControlBits = 0;
    lines.LineStart();
    EXPECT_EQ(lines.ControlBits, 0xB0);
    EXPECT_EQ(board.TakeAccesses(), Start);
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

} // namespace
} // namespace tqx
