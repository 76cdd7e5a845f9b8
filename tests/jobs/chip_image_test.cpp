#include "support/dump_sample.h"

#include <jobs/chip_image.h>
#include <jobs/files.h>

#include <gtest/gtest.h>

namespace tqx {
namespace {

std::string ReasonFor(const std::string& content) {
    try {
        ImageIn(content, "file");
        return "";
    } catch (const FileError& error) {
        return error.what();
    }
}

TEST(ChipImage, TheLastDumpOfAFileCounts) {
    const auto byte = [](int value) {
        return [value](auto... /*place*/) { return std::uint8_t(value); };
    };
    const std::string first = test::ExpectedRAMBlock("10:00:00", "01/02/26", byte(1)) +
                              test::ExpectedEEPROMBlock("10:00:00", "01/02/26", byte(2));
    const std::string second = test::ExpectedRAMBlock("11:00:00", "01/02/26", byte(3), 2) +
                               test::ExpectedStop("11:00:00", "01/02/26");
    const ChipImage image = ImageIn(first + second, "file");
    EXPECT_EQ(image.Registers[15], 3);
    EXPECT_FALSE(image.Registers[16].has_value());
    EXPECT_EQ(image.EEPROM[8191], 2);
    EXPECT_EQ(ReasonFor(first + "\r74:5D\t75:1G\r\n"),
              "file, line 1067: this is no line of a register dump");
}

TEST(ChipImage, IntelHexGoesThereAndBack) {
    ChipImage image;
    for (std::size_t i = 0; i < image.EEPROM.size(); ++i) {
        image.EEPROM[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    }
    const std::string text = IntelHex(image);
    EXPECT_TRUE(text.starts_with(":10000000000") && text.ends_with(":00000001FF\n"));
    EXPECT_EQ(ImageIn(text, "file").EEPROM, image.EEPROM);
    EXPECT_EQ(ImageIn(":0280400011220B\r\n:00000001FF\r\n", "file").EEPROM[0x41], 0x22);
    for (const char* bad : {":0200400011228A\n", ":02004000112\n", ":02FFFF001122CD\n", ":0g\n",
                            ":020000040001F9\n", ":10\n"}) {
        EXPECT_EQ(ReasonFor(bad), "file, line 1: this is no line of Intel HEX for this EEPROM")
            << bad;
    }
}

TEST(ChipImage, AnythingElseIsBytesFromTheBeginning) {
    const ChipImage image = ImageIn(std::string("\x00\xFF", 2), "file");
    EXPECT_EQ(image.EEPROM[1], 0xFF);
    EXPECT_FALSE(image.EEPROM[2].has_value());
    EXPECT_NE(ReasonFor(""), "");
    EXPECT_NE(ReasonFor(std::string(8193, 'x')), "");
}

} // namespace
} // namespace tqx
