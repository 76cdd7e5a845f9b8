#include "link/bus_phases.h"
#include "printer_port/eeprom_coms.h"
#include "support/recording_link.h"
#include "support/scripted_board.h"

#include <link/coms_port.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace tqx {
namespace {

using namespace test::phases;

/// Transfers to an odd address, which goes out as the even one.
class EEPROMTransfer : public testing::TestWithParam<bool> {
protected:
    test::ScriptedBoard board{GetParam()};
    LinkSetup setup;
    LineLayer lines{board, WiringOf(GetParam()), setup};
    EEPROMComs eeprom{lines};

    void SetUp() override {
        eeprom.SlaveAddress(0x59);
        eeprom.HighByte(0x9F);
        eeprom.LowByte(0x3C);
        eeprom.Data(0xD2);
    }
};

INSTANTIATE_TEST_SUITE_P(OnBothWirings, EEPROMTransfer, testing::Bool());

TEST_P(EEPROMTransfer, ReadsOneByteWithoutAReleaseAheadOfTheRepeatedStart) {
    board.ToSend = {0xC5};
    EXPECT_EQ(eeprom.ReadEEPROM(), 0xC5);
    EXPECT_EQ(board.TakeBus(), "S 58+ 9F+ 3C+ S 59+ C5- P");
    EXPECT_EQ(board.TakeAccesses(),
              Start + Out({0x58, 0x9F, 0x3C}) + Start + Out({0x59}) + ByteIn + Nack + Stop);
}

TEST_P(EEPROMTransfer, WritesOneByte) {
    eeprom.WriteEEPROM();
    EXPECT_EQ(board.TakeBus(), "S 58+ 9F+ 3C+ D2+ P");
    EXPECT_EQ(board.TakeAccesses(), Start + Out({0x58, 0x9F, 0x3C, 0xD2}) + Stop);
}

TEST(EEPROMOnTheRawPort, WritesToTheBoardsPortAndLooksAtTheCellsStatusRegister) {
    auto* link = new test::RecordingLink;
    LinkRoot root([link](const LinkSetup&) { return std::unique_ptr<LinkServer>(link); });
    BusCell cell;
    cell.PortAddress = 0x278;
    ComsPort coms(root, cell);
    LineLayer lines(coms, DirectWiring, root.Setup);
    EEPROMComs eeprom(lines);
    root->PrinterPortLink().BoardBus().PortAddress(0x3BC);
    link->PortStatus = 0xEF;
    link->Take();

    EXPECT_EQ(eeprom.ReadEEPROM(), 0x00);
    const std::vector<std::string> calls = link->Take();
    const auto looks = std::count(calls.begin(), calls.end(), "BoardBus.PortRead 279");
    EXPECT_EQ(looks, 4 + 8);
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& call) {
                                return call.starts_with("BoardBus.PortWrite 3BC B");
                            }),
              static_cast<std::ptrdiff_t>(calls.size()) - looks);
}

} // namespace
} // namespace tqx
