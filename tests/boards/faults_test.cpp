#include "board_fixture.h"

#include <link/link_error.h>

#include <algorithm>
#include <vector>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;
constexpr std::uint8_t Mode = 0x13;
constexpr std::uint8_t Scratch = 0x70;

/// Both wirings, so that no fault is right in one of them only.
class FaultsTest : public BoardTest, public testing::WithParamInterface<bool> {
protected:
    FaultsTest()
        : BoardTest(GetParam()) {}

    /// After the fault is gone the board must work as if nothing had been.
    void TearDown() override {
        Board.TheFaults().AllOff();
        EXPECT_EQ(Read(CompanyID), 0x41);
        EXPECT_EQ(SMBus().ReadByte(0x2C, CompanyID), 0x41);
    }
};

INSTANTIATE_TEST_SUITE_P(BothWirings, FaultsTest, testing::Bool());

TEST_P(FaultsTest, NoAnswerLeavesAnIdleBus) {
    Board.TheFaults().Every(Fault::NoAnswer, 2);
    for (const int expected : {0x41, 0xFF, 0x41, 0xFF}) {
        EXPECT_EQ(Read(CompanyID), expected);
    }
    for (const int expected : {0x41, 0xFF}) {
        EXPECT_EQ(SMBus().ReadByte(0x2C, CompanyID), expected);
    }
}

TEST_P(FaultsTest, StuckLinesGiveOneByteOnThePortAndATimeOutOnTheSMBus) {
    struct {
        Fault Stuck;
        int Byte;
        bool TimesOut;
    } const table[] = {{Fault::DataStuckLow, 0x00, true},
                       {Fault::DataStuckHigh, 0xFF, false},
                       {Fault::ClockStuckLow, 0xFF, true}};

    for (const auto& row : table) {
        Board.TheFaults().Always(row.Stuck);
        EXPECT_EQ(Read(CompanyID), row.Byte);
        Write(Scratch, 0x99);
        if (row.TimesOut) {
            EXPECT_THROW(SMBus().ReadByte(0x2C, CompanyID), LinkError);
        } else {
            EXPECT_EQ(SMBus().ReadByte(0x2C, CompanyID), 0xFF);
        }
        Board.TheFaults().Off(row.Stuck);
        EXPECT_EQ(Read(Scratch), 0x00);
    }
}

TEST_P(FaultsTest, WrongPECFailsABlockReadAndABlockWriteStoresNothing) {
    for (const bool wrong : {true, false}) {
        Board.TheFaults().Every(Fault::WrongPEC, wrong ? 1 : 0);
        Write(Scratch, 0);
        EXPECT_EQ(WriteBlock(), !wrong);
        EXPECT_EQ(Read(Scratch), wrong ? 0 : 0x11);
        ReadBlock();
        EXPECT_EQ(Bus().PECOK(), !wrong);
    }
}

TEST_P(FaultsTest, ShortCountEndsABlockReadWithANotice) {
    Board.TheFaults().Always(Fault::ShortCount);
    ReadBlock();
    EXPECT_EQ(Notices, 1);
    EXPECT_EQ(Read(CompanyID), 0x41); // the bus was left in mid-transfer
}

TEST_P(FaultsTest, LostEEPROMWriteLeavesTheByteAlone) {
    Board.TheFaults().Always(Fault::LostEEPROMWrite);
    Write(Mode, 0x02);
    EEPROMBus().WriteEEPROM(0x90, 0x05, 0x11);
    EEPROMBus().ReadEEPROM(0x90, 0x05);
    EXPECT_TRUE(WriteBlock()); // the chip has taken it, all the same
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x90, 0x05), 0xFF);
    Write(Scratch, 0x22);
    EXPECT_EQ(Read(Scratch), 0x22);
}

TEST_P(FaultsTest, FailedCallRaisesAndTheNextTransferIsGood) {
    Board.TheFaults().Every(Fault::LinkFails, 100);
    EXPECT_THROW(Read(CompanyID), LinkError);
    Board.TheFaults().Off(Fault::LinkFails);
    EXPECT_EQ(Read(CompanyID), 0x41);
    Board.TheFaults().Every(Fault::LinkFails, 2);
    EXPECT_EQ(SMBus().ReadByte(0x2C, CompanyID), 0x41);
    EXPECT_THROW(SMBus().WriteByte(0x2C, Scratch, 1), LinkError);
}

TEST_P(FaultsTest, AFailureAtAnyPortAccessLeavesTheBusUsable) {
    for (unsigned access = 1; access < 250; ++access) {
        Board.TheFaults().Every(Fault::LinkFails, access);
        try {
            Read(Scratch + 1); // 00h: the chip holds the data line for the whole byte
            Write(Scratch, 0x12);
        } catch (const LinkError&) {
        }
        Board.TheFaults().Off(Fault::LinkFails);
        ASSERT_EQ(Read(CompanyID), 0x41) << access;
        ASSERT_EQ(Read(0x58), 0x00) << access; // no address byte was taken for a register
    }
}

TEST(Faults, StrikeByTheSeed) {
    const auto strikes = [](std::uint32_t seed) {
        Faults faults(seed);
        faults.Chance(Fault::NoAnswer, 0.3);
        std::vector<bool> struck(1000);
        std::generate(struck.begin(), struck.end(),
                      [&faults] { return faults.Strikes(Fault::NoAnswer); });
        return struck;
    };
    const auto first = strikes(1);
    EXPECT_EQ(first, strikes(1));
    EXPECT_NE(first, strikes(2));
    EXPECT_NEAR(static_cast<double>(std::count(first.begin(), first.end(), true)), 300, 60);
    EXPECT_FALSE(Faults(1).Strikes(Fault::NoAnswer));
}

} // namespace
} // namespace tqx
