#include <device/register_map.h>

#include <gtest/gtest.h>
#include <set>
#include <string_view>

namespace tqx {
namespace {

TEST(RegisterMap, NamesEachRegisterOnce) {
    std::set<std::string_view> captions;
    for (const RegisterEntry& row : RegisterMap) {
        EXPECT_TRUE(captions.insert(row.Caption).second) << row.Caption;
    }
}

TEST(RegisterMap, TellsRowsWithLegendsOfTheirOwnAndWithADefault) {
    for (const RegisterEntry& row : RegisterMap) {
        EXPECT_EQ(row.OwnLegends, row.Legends != DefaultLegends) << row.Caption;
        const bool ain = row.Caption.starts_with("Ain");
        EXPECT_EQ(row.Tooltip, ain ? "Click to set as default" : "") << row.Caption;
    }
    EXPECT_EQ(FindRegister(reg::EEPROM3)->Legends[3], "WriteProtect");
    EXPECT_EQ(FindRegister(reg::Mask4)->Legends[7], "GPIO 16");
}

} // namespace
} // namespace tqx
