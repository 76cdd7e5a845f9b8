#include "board_fixture.h"

#include <link/link_error.h>

namespace tqx::sim {
namespace {

constexpr std::uint8_t CompanyID = 0x16;
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

} // namespace
} // namespace tqx::sim
