#include "cli/command_fixture.h"
#include "support/dump_sample.h"

#include <fstream>
#include <random>
#include <regex>

namespace tqx {
namespace {

using testing::HasSubstr;

class MemoryCommands : public test::CommandFixture {
protected:
    /// The whole EEPROM with bytes by chance.
    std::string image = [] {
        std::mt19937 random(7);
        std::string bytes(8192, '\0');
        std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
        return bytes;
    }();

    void SetUp() override { std::ofstream(Path("image.bin"), std::ios::binary) << image; }

    std::string EEPROMOfBoard() {
        OnBoard({"eeprom", "read", Path("now.bin")});
        return test::ContentOf(Path("now.bin"));
    }
};

TEST_F(MemoryCommands, TheDumpIsTheConsolesByteForByte) {
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 0);
    EXPECT_EQ(OnBoard({"dump", Path("dump.txt")}), 0);
    std::string dump = test::ContentOf(Path("dump.txt"));
    std::smatch head;
    ASSERT_TRUE(std::regex_search(
        dump, head, std::regex(R"(Start of RAM Dump  \*{4}  (.*)  \*{4}  (.*) \*{9}\r\n)")));
    const std::string at = head[1];
    const std::string date = head[2];
    const std::string rom = test::ExpectedEEPROMBlock(at, date, [&](int high, int low) {
        return static_cast<std::uint8_t>(
            image[static_cast<std::size_t>((high - 0x80) * 256 + low)]);
    });
    EXPECT_EQ(dump.substr(dump.size() - rom.size()).substr(80), rom.substr(80)); // behind its time
}

TEST_F(MemoryCommands, TheSMBusGivesTheRegistersAlone) {
    EXPECT_EQ(Run({"--simulated", "--smbus", "dump", Path("dump.txt")}), 0);
    EXPECT_THAT(test::ContentOf(Path("dump.txt")), testing::Not(HasSubstr("EEPROM")));
    for (const char* command : {"erase", "read", "write"}) {
        std::vector<std::string> words{"--simulated", "--smbus", "eeprom", command};
        if (command[0] != 'e') {
            words.push_back(Path("image.bin"));
        }
        EXPECT_EQ(Run(words), 2);
    }
    EXPECT_EQ(test::ContentOf(Path("image.bin")), image);
}

TEST_F(MemoryCommands, CompareNamesRegistersBitsAndEEPROMBytes) {
    OnBoard({"dump", Path("before")});
    EXPECT_EQ(OnBoard({"compare", Path("before"), Path("before")}), 0);
    OnBoard({
        "write",
        "EEPROM3",
        "0",
    });
    OnBoard({"write", "Config 1", "+IntEnable", "-Monitor"});
    OnBoard({"block", "write", "80,11", "12h"});
    EXPECT_EQ(OnBoard({"compare", "--settings", Path("before")}), 1);
    EXPECT_EQ(out, "0h    Config 1           1h -> 2h  +IntEnable  -Monitor\n"
                   "13h   EEPROM3            1h -> 81h  +Clock Extend\n"
                   "80,11 FFh -> 12h\n");
    EXPECT_EQ(err, "2 registers and 1 EEPROM byte differ\n");
    EXPECT_EQ(OnBoard({"compare", Path("before"), Path("nothing")}), 2);
    EXPECT_THAT(err, HasSubstr("No such file or directory"));
}

TEST_F(MemoryCommands, WritingTouchesOnlyWhatDiffers) {
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 0);
    EXPECT_EQ(EEPROMOfBoard(), image);
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 0);
    EXPECT_EQ(err, "128 pages verified, 0 erased, 0 bytes programmed, 0 wrong\n");
    image[100] = static_cast<char>(image[100] & 0x0F); // clears bits alone
    image[200] = static_cast<char>(image[200] ^ 0xFF); // sets some
    std::ofstream(Path("image.bin"), std::ios::binary) << image;
    OnBoard({"eeprom", "write", Path("image.bin")});
    EXPECT_THAT(err, HasSubstr(" 1 erased, "));
    EXPECT_EQ(EEPROMOfBoard(), image);
    EXPECT_EQ(OnBoard({"eeprom", "read", Path("image.hex")}), 0);
    EXPECT_EQ(OnBoard({"eeprom", "erase"}), 0);
    EXPECT_EQ(OnBoard({"eeprom", "verify", Path("image.hex")}), 1);
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.hex")}), 0);
    EXPECT_EQ(OnBoard({"eeprom", "verify", Path("image.bin")}), 0);
}

TEST_F(MemoryCommands, AProtectedChipIsLeftAloneAndTheBitIsNamed) {
    OnBoard({"write", "EEPROM3", "+WriteProtect"});
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 1);
    EXPECT_THAT(err, HasSubstr("`tqx7716 write EEPROM3 -WriteProtect`"));
    EXPECT_EQ(OnBoard({"block", "write", "80,0", "1"}), 1);
    EXPECT_THAT(EEPROMOfBoard(), testing::StartsWith("TQX7716\xFF"));
    OnBoard({"write", "EEPROM3", "-WriteProtect"});
    EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 0);
}

TEST_F(MemoryCommands, AfterALinkThatFailedOrABytesThatWereLostTheSecondWriteCompletes) {
    for (const char* fault : {"link-fails:1000000", "link-fails:2345678", "lost-eeprom-write:700",
                              "lost-eeprom-write:3"}) {
        OnBoard({"eeprom", "erase"});
        const bool link = fault[0] == 'l' && fault[1] == 'i';
        const int status = OnBoard({"--fault", fault, "eeprom", "write", Path("image.bin")});
        EXPECT_EQ(status, link ? 3 : 1) << fault << err;
        EXPECT_THAT(err, HasSubstr(link ? "Run the command again" : " wrong")) << fault;
        EXPECT_EQ(OnBoard({"eeprom", "write", Path("image.bin")}), 0);
        EXPECT_EQ(EEPROMOfBoard(), image) << fault;
    }
}

TEST_F(MemoryCommands, ABlockGoesWithItsPECTrace) {
    EXPECT_EQ(OnBoard({"block", "write", "80,40", "11h", "22h", "--pec"}), 0);
    EXPECT_EQ(out, "PEC  8F CD 63 59 66\n");
    EXPECT_EQ(OnBoard({"--json", "block", "read", "80,40", "--pec"}), 0);
    EXPECT_THAT(out, HasSubstr(R"({"data":[17,34,255,)"));
    EXPECT_EQ(OnBoard({"--fault", "wrong-pec", "block", "read", "80,40", "--pec"}), 1);
    EXPECT_EQ(OnBoard({"--fault", "short-count", "block", "read", "80,40"}), 1);
    EXPECT_THAT(err, HasSubstr("The byte count read did not equal 32"));
}

} // namespace
} // namespace tqx
