#include "board_fixture.h"

#include <simulated/bus_trace.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace tqx::sim {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class BusTraceTest : public BoardTest {
protected:
    /// What the trace shows of what has happened since the last call.
    std::vector<std::string> Take() {
        std::vector<std::string> texts;
        for (const TraceLine& line : Board.Trace().Lines()) {
            texts.push_back(line.Text);
        }
        Board.Trace().Clear();
        return texts;
    }
};

TEST_F(BusTraceTest, ShowsTransfersThatNobodyAnswers) {
    // The printer port goes on, whatever the chip says, and pulls the data line low at the end of
    // each acknowledge clock: where the line was high that is a start condition.
    Bus().ReadByte(0x5A, 0x16);
    SMBus().ReadByte(0x2D, 0x16);
    SMBus().ReadByte(0xFF, 0x16); // no address at all: nothing is on the bus
    Board.Plugged(false);
    SMBus().WriteByte(0x2C, 0x16, 0);
    EXPECT_THAT(Take(), ElementsAre("S 5Aw- Sr 16w- Sr 5Br- Sr FFr- P", "S 5Aw- P", "S 58w- P"));
}

TEST_F(BusTraceTest, ATransferThatBreaksOffHasNoStopAndTheNextBeginsWithARepeatedStart) {
    Bus().BusStart();
    Bus().SendBusByte(0x58);
    Bus().WaitAck();
    EXPECT_EQ(Board.Trace().Lines().back().Text, "S 58w+");
    Read(0x16);
    EXPECT_THAT(Take(), ElementsAre("S 58w+ Sr 58w+ 16+ Sr 59r+ 41- P"));
}

TEST_F(BusTraceTest, PausedItKeepsWhatItHasAndTakesNothing) {
    Read(0x16);
    Board.Trace().Paused(true);
    const std::uint64_t version = Board.Trace().Version();
    Read(0x17);
    EXPECT_EQ(Board.Trace().Version(), version);
    Board.Trace().Paused(false);
    EXPECT_THAT(Take(), ElementsAre("S 58w+ 16+ Sr 59r+ 41- P"));
}

TEST_F(BusTraceTest, KeepsTheLastTransfersAndNoPartOfOne) {
    for (std::size_t i = 0; i < BusTrace::MostTransfers + 3; ++i) {
        Write(0x70, static_cast<std::uint8_t>(i));
    }
    std::vector<std::string> texts = Take();
    EXPECT_EQ(texts.size(), BusTrace::MostTransfers);
    EXPECT_EQ(texts.front(), "S 58w+ 70+ 03+ P");

    constexpr std::size_t BytesOfABlock = 1 + 1 + 1 + 1 + 32 + 1;
    for (std::size_t i = 0; i < BusTrace::MostTransfers; ++i) {
        ReadBlock();
    }
    texts = Take();
    EXPECT_EQ(texts.size(), BusTrace::MostBytes / BytesOfABlock);
    EXPECT_THAT(texts.front(), StartsWith("S 58w+ A1+ Sr 59r+ 20+ "));
}

} // namespace
} // namespace tqx::sim
