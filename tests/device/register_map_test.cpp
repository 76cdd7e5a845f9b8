#include <device/register_map.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string_view>

namespace tqx {
namespace {

using testing::ElementsAre;

TEST(RegisterMap, NamesEachRegisterOnce) {
    std::set<std::string_view> captions;
    for (const RegisterEntry& row : RegisterMap) {
        EXPECT_TRUE(captions.insert(row.Caption).second) << row.Caption;
    }
}

TEST(RegisterMap, KeepsItsOwnLegendsApartFromTheDefaultOnes) {
    for (const RegisterEntry& row : RegisterMap) {
        EXPECT_EQ(row.OwnLegends, row.Legends != DefaultLegends) << row.Caption;
    }
    EXPECT_THAT(FindRegister(reg::EEPROM3)->Legends,
                ElementsAre("Read", "Write", "Erase", "WriteProtect", "TestModeBit0",
                            "TestModeBit1", "TestModeBit2", "Clock Extend"));
    EXPECT_EQ(FindRegister(reg::Mask4)->Legends[7], "GPIO 16");
}

/// The pairs of registers that the channels work on carry captions of one channel.
TEST(RegisterMap, OrdersLimitsAsItOrdersValues) {
    const auto channel = [](int address) {
        const std::string_view caption = RegisterMap.at(static_cast<std::size_t>(address)).Caption;
        return caption.substr(0, caption.find(' '));
    };
    for (int ain = 0; ain < 8; ++ain) {
        EXPECT_EQ(channel(0x50 + ain), channel(0x30 + ain));
        EXPECT_EQ(channel(0x58 + ain), channel(0x30 + ain));
        EXPECT_EQ(channel(0x60 + ain), channel(0x38 + ain));
    }
    for (int rail : {0, 1, 2, 4, 5, 6, 7}) { // 3.3 V main is spelt in two ways
        EXPECT_EQ(channel(0x40 + rail), channel(0x28 + rail));
        EXPECT_EQ(channel(0x48 + rail), channel(0x28 + rail));
    }
}

TEST(RegisterMap, OffersTheDefaultOnAnalogueInputsAlone) {
    for (const RegisterEntry& row : RegisterMap) {
        const bool ain = row.Caption.starts_with("Ain");
        EXPECT_EQ(row.Tooltip, ain ? "Click to set as default" : "") << row.Caption;
    }
}

} // namespace
} // namespace tqx
