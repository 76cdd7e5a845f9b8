#include "support/scripted_board.h"

#include <link/port_link.h>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tqx {
namespace {

using testing::AllOf;
using testing::HasSubstr;

using Calls = std::vector<std::function<void()>>;

/// What the user would read of the error that `call` raises.
std::string ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const LinkError& error) {
        return std::string(error.what()) + ". " + error.Advice();
    }
    return "no error";
}

/// Three ports, the last two of them at one address.
class ThreePorts : public testing::Test {
protected:
    std::vector<test::ScriptedBoard*> boards{new test::ScriptedBoard(false, 0x378),
                                             new test::ScriptedBoard(false, 0x278),
                                             new test::ScriptedBoard(false, 0x278)};
    LinkSetup setup;
    PortLink link{Owned(), setup};
    BoardBus& bus = link.BoardBus();

    std::vector<std::unique_ptr<ParallelPort>> Owned() const {
        return std::vector<std::unique_ptr<ParallelPort>>(boards.begin(), boards.end());
    }

    /// Which ports a transfer reached.
    std::string Reached() {
        bus.WriteByte(0x58, 1, 2);
        std::string reached;
        for (test::ScriptedBoard* board : boards) {
            reached += board->TakeAccesses().empty() ? "-" : "x";
        }
        return reached;
    }
};

TEST_F(ThreePorts, AreSelectedByIndexOrAddress) {
    EXPECT_EQ(Reached(), "x--");
    link.PortIndex(2);
    EXPECT_EQ(Reached(), "--x");
    // The address that the selected port has already does not move the selection.
    bus.PortAddress(0x278);
    EXPECT_EQ(Reached(), "--x");
    bus.PortAddress(0x378);
    EXPECT_EQ(link.PortAddress(), 0x378);
    EXPECT_EQ(Reached(), "x--");
    bus.PortAddress(0x278);
    EXPECT_EQ(Reached(), "-x-");
}

TEST_F(ThreePorts, APortThatDoesNotExistIsToldAndTheSelectionStays) {
    link.PortIndex(1);
    EXPECT_THAT(ErrorOf([this] { link.PortIndex(3); }), HasSubstr("number 3"));
    EXPECT_THAT(ErrorOf([this] { bus.PortAddress(0x3BC); }),
                AllOf(HasSubstr("3BCh"), HasSubstr("Search for the chip again")));
    EXPECT_EQ(Reached(), "-x-");
}

TEST_F(ThreePorts, RawAccessTakesDataAndStatusRegistersOfAnyPort) {
    bus.PortWrite(0x278, 0xB1);
    EXPECT_EQ(boards[1]->TakeAccesses(), "h");
    EXPECT_EQ(bus.PortRead(0x379), 0xFF);
    EXPECT_EQ(boards[0]->TakeAccesses(), "r");
    EXPECT_EQ(boards[0]->TakeBus(), "[ ]");
    for (const auto& call :
         Calls{[this] { bus.PortWrite(0x379, 0); }, [this] { bus.PortRead(0x378); }}) {
        EXPECT_THAT(ErrorOf(call), AllOf(HasSubstr("37"), HasSubstr("base address")));
    }
}

TEST_F(ThreePorts, ABurstFollowsTheSelection) {
    link.BurstMode(true);
    Reached();
    EXPECT_TRUE(boards[0]->Held);
    link.PortIndex(1);
    EXPECT_FALSE(boards[0]->Held);
    Reached();
    EXPECT_TRUE(boards[1]->Held);
    bus.PortWrite(0x378, 0xB0);
    EXPECT_FALSE(boards[0]->Held);
    EXPECT_TRUE(boards[1]->Held);
    link.BurstMode(false);
    EXPECT_FALSE(boards[1]->Held);
}

TEST(WithoutAPort, OnlyTransfersFailAndTellWhatToDo) {
    const LinkSetup setup;
    PortLink link({}, setup);
    BoardBus& bus = link.BoardBus();
    link.PortIndex(0);
    link.BurstMode(true);
    link.BurstMode(false);
    bus.PortAddress(0x378);
    EXPECT_EQ(link.PortCount(), 0);
    EXPECT_EQ(link.PortAddress(), 0);
    for (const auto& transfer : Calls{
             [&] { bus.ReadByte(0x58, 0x16); },
             [&] { bus.BlockWrite(1, WriteBlock{}); },
             [&] { link.EEPROMLink().ErasePage(0x80, 0, 0); },
             [&] { bus.BusStart(); },
             [&] { bus.PortWrite(0x378, 0); },
             [&] { bus.PortRead(0x379); },
         }) {
        EXPECT_THAT(ErrorOf(transfer),
                    AllOf(HasSubstr("no printer port"), HasSubstr("use the SMBus")));
    }
}

} // namespace
} // namespace tqx
