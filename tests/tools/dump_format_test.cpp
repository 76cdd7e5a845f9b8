#include <tools/dump_format.h>

#include <array>
#include <gtest/gtest.h>

namespace tqx {
namespace {

const DumpStamp stamp{"10:20:30", "1/2/2003"};

TEST(DumpFormatTest, HeadingsAndEndsHaveTheirStars) {
    EXPECT_EQ(dump::RAMStart(stamp),
              "Start of RAM Dump  ****  10:20:30  ****  1/2/2003 *********\r\n");
    EXPECT_EQ(dump::RAMEnd(stamp),
              "End of RAM Dump  ****  10:20:30  ****  1/2/2003 ***********\r\n");
    EXPECT_EQ(dump::EEPROMStart(stamp),
              "\rStart of EEPROM Dump  ****  10:20:30  ****  1/2/2003 ********\r\n");
    EXPECT_EQ(dump::EEPROMEnd(stamp),
              "\rEnd of EEPROM Dump  ****  10:20:30  ****  1/2/2003 **************\r\n");
    EXPECT_EQ(dump::Terminated(stamp),
              "*** Dump terminated by user ***   10:20:30  ****  1/2/2003 ***\r\n");
}

TEST(DumpFormatTest, RowsHaveNoLeadingZerosAndNoLastSeparator) {
    const std::array<std::uint8_t, 8> bytes{0x05, 0x00, 0xFF, 0x1F, 0x10, 0x0A, 0x80, 0x09};
    EXPECT_EQ(dump::RAMRow(0, bytes), "\r0:5\t1:0\t2:FF\t3:1F\t4:10\t5:A\t6:80\t7:9\r\n");
    EXPECT_EQ(dump::RAMRow(0xF8, bytes).substr(0, 10), "\rF8:5\tF9:0");
    EXPECT_EQ(dump::EEPROMRow(0x9F, 0xF8, bytes),
              "\r9F,F8:5    \t9F,F9:0    \t9F,FA:FF    \t9F,FB:1F    \t9F,FC:10    \t9F,FD:A    \t"
              "9F,FE:80    \t9F,FF:9\r\n");
}

TEST(DumpFormatTest, TheMomentHasATimeAndADate) {
    const DumpStamp now = DumpStamp::Now();
    EXPECT_FALSE(now.Time.empty());
    EXPECT_FALSE(now.Date.empty());
    EXPECT_NE(now.Time, now.Date);
}

} // namespace
} // namespace tqx
