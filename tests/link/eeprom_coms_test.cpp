#include "link/bus_phases.h"
#include "support/recording_link.h"
#include "support/scripted_line_port.h"

#include <link/coms_port.h>
#include <link/eeprom_coms.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace tqx {
namespace {

using test::BusPhases;

class EEPROMTransfer : public testing::TestWithParam<bool> {
protected:
    test::ScriptedBoard board{WiringOf(GetParam())};
    test::ScriptedLinePort port{board};
    LinkSetup setup;
    LineLayer lines{port, WiringOf(GetParam()), setup};
    EEPROMComs eeprom{lines};
    BusPhases expected{GetParam()};

    void SetUp() override {
        eeprom.SlaveAddress(0x58);
        eeprom.HighByte(0x9F);
        eeprom.LowByte(0x3C);
        eeprom.Data(0xD2);
    }
};

TEST_P(EEPROMTransfer, ReadsOneByteWithoutAReleaseAheadOfTheRepeatedStart) {
    board.ToSend = {0xC5};
    EXPECT_EQ(eeprom.ReadEEPROM(), 0xC5);
    EXPECT_EQ(board.TakeBus(), "S 58+ 9F+ 3C+ S 59+ C5- P");
    EXPECT_EQ(board.TakeAccesses(), std::string(expected.Start()
                                                    .Acknowledged({0x58, 0x9F, 0x3C})
                                                    .Start()
                                                    .Acknowledged({0x59})
                                                    .ByteIn()
                                                    .Nack()
                                                    .Stop()));
}

TEST_P(EEPROMTransfer, WritesOneByte) {
    eeprom.WriteEEPROM();
    EXPECT_EQ(board.TakeBus(), "S 58+ 9F+ 3C+ D2+ P");
    EXPECT_EQ(board.TakeAccesses(),
              std::string(expected.Start().Acknowledged({0x58, 0x9F, 0x3C, 0xD2}).Stop()));
}

TEST_P(EEPROMTransfer, TakesAnOddAddressForTheEvenOne) {
    eeprom.SlaveAddress(0x59);
    eeprom.ReadEEPROM();
    eeprom.WriteEEPROM();
    EXPECT_EQ(board.TakeBus(), "S 58+ 9F+ 3C+ S 59+ FF- P S 58+ 9F+ 3C+ D2+ P");
}

TEST_P(EEPROMTransfer, RunsToItsEndWithoutAChip) {
    board.Answers = false;
    EXPECT_EQ(eeprom.ReadEEPROM(), 0xFF);
    EXPECT_EQ(board.TakeAccesses(), std::string(expected.Start()
                                                    .Acknowledged({0x58, 0x9F, 0x3C})
                                                    .Start()
                                                    .Acknowledged({0x59})
                                                    .ByteIn()
                                                    .Nack()
                                                    .Stop()));
}

INSTANTIATE_TEST_SUITE_P(OnBothWirings, EEPROMTransfer, testing::Bool());

TEST(EEPROMOnTheRawPort, WritesToTheBoardsPortAndLooksAtTheCellsStatusRegister) {
    auto* link = new test::RecordingLink;
    LinkRoot root([link](const LinkSetup&) { return std::unique_ptr<LinkServer>(link); });
    BusCell cell;
    cell.PortAddress = 0x278;
    ComsPort coms(root, cell);
    LineLayer lines(coms, DirectWiring, root.Setup);
    EEPROMComs eeprom(lines);
    root->PrinterPortLink().BoardBus().PortAddress(0x3BC);
    link->Take();

    EXPECT_EQ(eeprom.ReadEEPROM(), 0xFF);
    int looks = 0;
    for (const std::string& call : link->Take()) {
        if (call == "BoardBus.PortRead 279") {
            ++looks;
        } else {
            EXPECT_THAT(call, testing::StartsWith("BoardBus.PortWrite 3BC B"));
        }
    }
    EXPECT_EQ(looks, 4 + 8);
    link->PortStatus = 0xEF;
    EXPECT_EQ(eeprom.ReadEEPROM(), 0x00);
}

} // namespace
} // namespace tqx
