#include "cli/command_fixture.h"

#include <jobs/file_lock.h>

#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

namespace tqx {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

class RegisterCommands : public test::CommandFixture {};

TEST_F(RegisterCommands, FindNamesEveryChipByMediumPlaceAndAddress) {
    EXPECT_EQ(Run({"--simulated", "find"}), 0);
    EXPECT_EQ(out, "58h on the printer port 378h, direct wiring\n2Ch on the SMBus 5000h\n");
    EXPECT_EQ(Run({"--simulated", "--inverted", "--json", "find"}), 0);
    EXPECT_EQ(out,
              R"([{"medium":"printer port","address":"58h","place":"378h","wiring":"inverted"}])"
              "\n");
    EXPECT_EQ(Run({"--simulated", "--printer-port", "278h", "find"}), 1);
    EXPECT_EQ(Run({"--simulated", "--address", "2Dh", "find"}), 1);
    EXPECT_EQ(Run({"--simulated", "--fault", "no-answer", "read", "0"}), 1);
    EXPECT_THAT(err, HasSubstr("no TQX7716 was found"));
}

TEST_F(RegisterCommands, ARegisterIsReadByNameBeginningOrNumber) {
    OnBoard({"write", "46h", "E6h"});
    const std::string line = "46h  +12V HighLim       E6h  230  11100110  14.382 V\n";
    for (const char* name : {"+12V HighLim", "+12vhigh", "46h", "0x46", "70"}) {
        EXPECT_EQ(OnBoard({"read", name}), 0) << name;
        EXPECT_EQ(out, line) << name;
    }
    EXPECT_EQ(OnBoard({"read", "-12V Low", "EEPROM3", "FFh"}), 0);
    EXPECT_EQ(out, "4Fh  -12V LowLim        0h   0    00000000  -15.848 V\n"
                   "13h  EEPROM3            1h   1    00000001  Read\n"
                   "FFh                     0h   0    00000000\n");
    EXPECT_EQ(OnBoard({"read", "--json", "46h"}), 0);
    EXPECT_EQ(Json::parse(out)[0]["reading"], 14.382);
}

TEST_F(RegisterCommands, WhatCannotBeMeantIsToldAndSendsNothing) {
    const std::vector<std::pair<std::vector<std::string>, const char*>> wrong{
        {{"read", "Ain1"}, "\"Ain1\" could be Ain1 Val, Ain1 HighLim, Ain1 LowLim"},
        {{"read", "nothing"}, "there is no register \"nothing\""},
        {{"read", "100h"}, "there is no register 100h"},
        {{"write", "0", "256"}, "\"256\" is no byte"},
        {{"write", "0", "1", "2"}, "is no byte"},
        {{"write", "0", "+Watch"}, "\"Watch\" is no bit of it; its bits are Monitor"},
        {{"write", "2", "+Fan0 Div"}, "more than one bit"},
        {{"write", "46h", "45C"}, "46h +12V HighLim is not in C"},
        {{"write", "46h", "99V"}, "46h +12V HighLim cannot hold 99V"},
        {{"write", "40h", "128C"}, "cannot hold"},
        {{"--address", "50h", "read", "0"}, "no TQX7716 is at 50h"},
        {{"--printer-port", "LPT1", "read", "0"}, "LPT1 is no address of a printer port"},
        {{"--fault", "rain", "read", "0"}, "there is no fault rain"},
        {{}, "which command?"},
        {{"reed", "0"}, "not expected"},
    };
    for (const auto& [arguments, text] : wrong) {
        EXPECT_EQ(OnBoard(arguments), 2) << text;
        EXPECT_THAT(err, HasSubstr(text));
        EXPECT_EQ(out, "");
    }
    OnBoard({"read", "0", "2", "40h", "46h"});
    EXPECT_THAT(out, StartsWith("0h   Config 1           1h"));
    EXPECT_THAT(out, HasSubstr("46h  +12V HighLim       FFh"));
}

TEST_F(RegisterCommands, AWriteTakesNumbersUnitsAndBitsAndSaysWhatTheChipKept) {
    EXPECT_EQ(OnBoard({"write", "+12V High", "11.4V"}), 0);
    EXPECT_EQ(err, "46h +12V HighLim is B6h, 11.393 V\n");
    EXPECT_EQ(OnBoard({"write", "-12V Low", "-13 V"}), 0);
    EXPECT_EQ(err, "4Fh -12V LowLim is 29h, -12.97 V\n");
    EXPECT_EQ(OnBoard({"write", "TDM1 Low", "-5C"}), 0);
    EXPECT_EQ(err, "48h TDM1 LowLim is 85h, -5 C\n");
    EXPECT_EQ(OnBoard({"write", "Fan0 High", "50rpm"}), 0);
    EXPECT_EQ(err, "60h Fan0 HighLim is FFh, 661 RPM\n");
    EXPECT_EQ(OnBoard({"write", "Config 1", "+EnV/Ext2", "-Monitor"}), 0);
    EXPECT_EQ(err, "0h Config 1 is 8h\n");
    EXPECT_EQ(OnBoard({"write", "41h", "1V"}), 0); // of Ain 9 now, and no longer in degrees
    EXPECT_EQ(OnBoard({"write", "41h", "1C"}), 2);
    EXPECT_EQ(OnBoard({"write", "Revision", "5"}), 1);
    EXPECT_EQ(err, "17h Revision kept 42h, not 5h\n");
}

TEST_F(RegisterCommands, TheLinksFailureIsToldWithItsAdvice) {
    EXPECT_EQ(Run({"--simulated", "--fault", "link-fails:5000", "dump", Path("dump.txt")}), 3);
    EXPECT_THAT(err, HasSubstr("could not be read and stand as FF"));
    EXPECT_EQ(Run({"--simulated", "--smbus", "--fault", "link-fails:5", "read", "0", "1"}), 3);
    EXPECT_THAT(err, HasSubstr("Switch the fault off on the simulated board."));
}

TEST_F(RegisterCommands, ABoardThatAnotherCallWorksOnIsToldWithItsHolder) {
    OnBoard({"read", "0"});
    const int other = open(Path("board").c_str(), O_RDONLY);
    LockedBy(other);
    EXPECT_EQ(OnBoard({"read", "0"}), 3);
    EXPECT_THAT(err, HasSubstr("cli_tests, process"));
    close(other);
    EXPECT_EQ(OnBoard({"read", "0"}), 0);
}

TEST_F(RegisterCommands, InitializeWritesWhatTheConsoleWrites) {
    EXPECT_EQ(OnBoard({"initialize"}), 0);
    OnBoard({"read", "--json", "0", "Ah", "Bh", "1Dh", "60h", "46h", "6Bh", "40h", "41h"});
    std::vector<int> values;
    for (const Json& each : Json::parse(out)) {
        values.push_back(each["value"]);
    }
    EXPECT_THAT(values, testing::ElementsAre(3, 0x55, 0x55, 0xFF, 0xFF, 0xE6, 0x0E, 0x5A, 0x5A));
}

} // namespace
} // namespace tqx
