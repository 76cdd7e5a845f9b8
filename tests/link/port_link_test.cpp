#include "printer_port/line_layer.h"
#include "support/recording_link.h"
#include "support/scripted_board.h"

#include <link/burst_scope.h>
#include <link/port_link.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

/// Transfers as the accesses of a printer port, in the letters of ScriptedBoard.
/// @{
const std::string Start = "HdsdL";
const std::string Stop = "LdsdH";
const std::string Release = "LdhdH";
const std::string BitIn = "dhHdrh";
const std::string ByteIn = "L" + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn;
const std::string Nack = "hHdhL";

/// Bytes out, each with the clock of its acknowledge.
std::string Out(std::initializer_list<std::uint8_t> bytes) {
    std::string accesses;
    for (const std::uint8_t byte : bytes) {
        for (int mask = 0x80; mask != 0; mask /= 2) {
            accesses += (byte & mask) != 0 ? "dhdHdhdL" : "dLsdLL";
        }
        accesses += "dhHdrsL";
    }
    return accesses;
}

/// @}

/// Transfers on one port with a small slave on its lines, in both board modes.
class PortLinkTransfer : public testing::TestWithParam<bool> {
protected:
    LinkSetup setup;
    test::ScriptedBoard* board = new test::ScriptedBoard(GetParam());
    PortLink link{OnePort(board), setup};
    BoardBus& bus = link.BoardBus();
    EEPROMLink& eeprom = link.EEPROMLink();

    void SetUp() override {
        bus.BoardMode(GetParam());
        bus.SlaveAddress(0x58);
        bus.BusStop(); // the first use of the port, which parks its lines
        board->TakeBus();
        board->TakeAccesses();
    }

    static std::vector<std::unique_ptr<ParallelPort>> OnePort(ParallelPort* port) {
        std::vector<std::unique_ptr<ParallelPort>> ports;
        ports.emplace_back(port);
        return ports;
    }

    void ReadBlock() {
        std::uint8_t out = 0;
        bus.BlockRead(0xAA, 0x0A, out);
    }
};

INSTANTIATE_TEST_SUITE_P(InBothBoardModes, PortLinkTransfer, testing::Bool());

TEST_P(PortLinkTransfer, ReadsAndWritesARegister) {
    board->ToSend = {0x41};
    EXPECT_EQ(bus.ReadByte(0x5A, 0x16), 0x41);
    EXPECT_EQ(board->TakeBus(), "[ S 5A+ 16+ S 5B+ 41- P ]");
    EXPECT_EQ(board->TakeAccesses(),
              Start + Out({0x5A, 0x16}) + Release + Start + Out({0x5B}) + ByteIn + Nack + Stop);
    bus.WriteByte(0x58, 0xFF, 0x81);
    EXPECT_EQ(board->TakeBus(), "[ S 58+ FF+ 81+ P ]");
    EXPECT_EQ(board->TakeAccesses(), Start + Out({0x58, 0xFF, 0x81}) + Stop);
}

TEST_P(PortLinkTransfer, WritesABlockWithPECAndAPauseAfterEachByte) {
    bus.UsePEC(true);
    bus.ByteDelay(0.001F);
    bus.BlockWrite(2, {0, 0, 0, 0x11, 0x22});
    EXPECT_EQ(board->TakeBus(), "[ S 58+ A0+ 02+ 11+ 22+ 66+ P ]");
    EXPECT_TRUE(bus.PECOK());
    EXPECT_EQ(bus.PECResult(), 0x66);
    EXPECT_EQ(bus.PECTrace()[4], 0x66);
    EXPECT_GE(board->Delayed, 6ms);
    EXPECT_LT(board->Delayed, 6.1ms);

    board->Delayed = 0ns;
    bus.WriteByte(0x58, 0x13, 0x81);
    EXPECT_LT(board->Delayed, 1ms) << "the pause is for blocks alone";
}

TEST_P(PortLinkTransfer, ReadsABlock) {
    bus.UsePEC(true);
    board->ToSend = {32};
    for (std::uint8_t i = 0; i < 32; ++i) {
        board->ToSend.push_back(i);
    }
    board->ToSend.push_back(0x45);
    ReadBlock();
    const std::string seen = board->TakeBus();
    EXPECT_THAT(seen, StartsWith("[ S 58+ A1+ S 59+ 20+ 00+ 01+ 02+"));
    EXPECT_THAT(seen, EndsWith("1E+ 1F+ 45- P ]"));
    EXPECT_EQ(bus.BlockData()[33], 31);
    EXPECT_EQ(bus.PECTrace()[33], 0x45);
    EXPECT_TRUE(bus.PECOK());
}

TEST_P(PortLinkTransfer, AfterAWrongCountTheNextTransferFindsTheBusUsable) {
    int notices = 0;
    setup.Notice = [&](std::string_view, std::string_view) {
        ++notices;
        EXPECT_TRUE(board->Held);
    };
    board->ToSend = {31, 0x00, 0x41};
    ReadBlock();
    EXPECT_EQ(board->TakeBus(), "[ S 58+ A1+ S 59+ ]");
    EXPECT_EQ(notices, 1);
    board->ToSend = {0x41};
    EXPECT_EQ(bus.ReadByte(0x58, 0x16), 0x41);
}

TEST_P(PortLinkTransfer, TheEEPROMGoesByTheBusAddress) {
    bus.SlaveAddress(0x5C);
    board->ToSend = {0x77};
    EXPECT_EQ(eeprom.ReadEEPROM(0x80, 0x01), 0x77);
    eeprom.WriteEEPROM(0x9F, 0xFF, 0x12);
    eeprom.ErasePage(0x81, 0x40, 0);
    EXPECT_EQ(board->TakeBus(), "[ S 5C+ 80+ 01+ S 5D+ 77- P ] [ S 5C+ 9F+ FF+ 12+ P ] "
                                "[ S 5C+ 81+ 40+ 00+ P ]");
}

TEST_P(PortLinkTransfer, ABurstKeepsThePortFromItsFirstTransferOn) {
    link.BurstMode(true);
    EXPECT_EQ(board->TakeBus(), "");
    bus.WriteByte(0x58, 1, 2);
    eeprom.WriteEEPROM(0x80, 1, 2);
    EXPECT_EQ(board->TakeBus(), "[ S 58+ 01+ 02+ P S 58+ 80+ 01+ 02+ P");
    link.BurstMode(false);
    link.BurstMode(false);
    EXPECT_EQ(board->TakeBus(), "]");
}

TEST_P(PortLinkTransfer, AfterAPortHasComeBackTheFirstTransferIsGood) {
    int broken = 0;
    for (; broken < 1000; ++broken) {
        board->WritesLeft = broken;
        board->Failures = 1000;
        board->ToSend = {0x00};
        try {
            bus.ReadByte(0x58, 0x16);
            break;
        } catch (const LinkError&) {
        }
        board->WritesLeft = -1;
        board->TakeBus();
        board->ToSend = {0x41, 0x41}; // the slave may still go on to the first one's first bit
        ASSERT_EQ(bus.ReadByte(0x58, 0x16), 0x41) << broken;
        ASSERT_THAT(board->TakeBus(), EndsWith("S 58+ 16+ S 59+ 41- P ]")) << broken;
    }
    EXPECT_GT(broken, 100);
}

TEST_P(PortLinkTransfer, AfterAProgramThatWasKilledTheFirstTransferIsGood) {
    auto* left = new test::ScriptedBoard(GetParam());
    PortLink next(OnePort(left), setup);
    LineLayer killed(*left, WiringOf(GetParam()), setup);
    killed.LineStart();
    killed.ClockOutByte(0x58);
    killed.ClockAck();
    killed.ClockOutByte(0x74); // whose acknowledge the slave goes on giving

    next.BoardBus().BoardMode(GetParam());
    left->ToSend = {0x41};
    EXPECT_EQ(next.BoardBus().ReadByte(0x58, 0x16), 0x41);
    EXPECT_THAT(left->TakeBus(), EndsWith("S P S 58+ 16+ S 59+ 41- P ]"));
}

TEST_P(PortLinkTransfer, APortThatIsGoneIsLetGoByEveryTransfer) {
    board->WritesLeft = 10;
    board->Failures = 1000;
    const std::vector<std::function<void()>> transfers{
        [this] { eeprom.ReadEEPROM(0x80, 0); }, [this] { bus.BlockWrite(3, WriteBlock{}); },
        [this] { bus.WriteByte(0x58, 1, 2); },  [this] { bus.BusStart(); },
        [this] { bus.PortWrite(0x378, 0xB0); },
    };
    for (const auto& transfer : transfers) {
        EXPECT_THROW(transfer(), LinkError);
        EXPECT_FALSE(board->Held);
    }
}

TEST_P(PortLinkTransfer, AnEngineOfOnesOwnRunsOnTheByteOperationsInABurst) {
    const BurstScope burst(link);
    board->ToSend = {0x12, 0x34};
    bus.BusRelease();
    bus.BusStart();
    bus.SendBusByte(0x59);
    EXPECT_FALSE(bus.AckStatus());
    EXPECT_EQ(bus.ReadBusByte(), 0x12);
    bus.SendAck();
    EXPECT_EQ(bus.ReadBusByte(), 0x34);
    bus.SendNack();
    bus.BusStop();
    EXPECT_EQ(board->TakeBus(), "[ S 59+ 12+ 34- P");
}

TEST(LineLayer, KeepsTheBusNearAndNeverAbove100kHz) {
    test::ScriptedBoard board;
    LinkSetup setup{.Notice = {}, .BitDelayCount = 100};
    LineLayer lines(board, DirectWiring, setup);
    lines.ClockOutByte(0x00);
    EXPECT_GE(board.Delayed, 8 * 10us);
    EXPECT_LE(board.Delayed, 8 * 10.5us);
    board.Delayed = 0ns;
    setup.BitDelayCount = 0;
    lines.LineStop();
    EXPECT_EQ(board.Delayed, 2 * BitDelayRound);
}

TEST(Burst, EndsWithItsScopeOnEveryWayOut) {
    test::RecordingLink link;
    { const BurstScope burst(link); }
    EXPECT_THAT(link.Take(),
                ElementsAre("PrinterPortLink.BurstMode 1", "PrinterPortLink.BurstMode 0"));
    link.FailOn = "PrinterPortLink.BurstMode 0";
    const auto failInBurst = [&link] {
        const BurstScope burst(link);
        throw std::runtime_error("in the middle");
    };
    EXPECT_THROW(failInBurst(), std::runtime_error);
}

} // namespace
} // namespace tqx
