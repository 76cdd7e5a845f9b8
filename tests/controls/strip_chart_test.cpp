#include <controls/strip_chart.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using std::chrono::milliseconds;

class StripChartMembers : public testing::Test {
protected:
    StripChart chart;
};

TEST_F(StripChartMembers, VariablesHaveTheirFixedColours) {
    constexpr std::array<std::uint32_t, 18> rgb = {
        0xFF8080, 0x808080, 0x400040, 0x004040, 0xFF0080, 0x0080FF, 0xFF80C0, 0xFF80FF, 0xFF0000,
        0x800080, 0x80FF00, 0x0080C0, 0x8080C0, 0xFF00FF, 0x804040, 0xFF8040, 0x004080, 0x808000};
    for (int n = 0; n < 18; ++n) {
        chart.VariableIndex(n);
        const std::uint32_t bgr = chart.VariableColor();
        EXPECT_EQ((bgr & 0xFF) << 16 | (bgr & 0xFF00) | bgr >> 16, rgb[static_cast<size_t>(n)]);
    }
    chart.VariableIndex(18);
    EXPECT_EQ(chart.VariableColor(), 0U);
}

TEST_F(StripChartMembers, CaptionsAreAddressedByTheirNumber) {
    for (int n = 0; n < 19; ++n) {
        chart.CaptionIndex(n);
        chart.Caption(QString::number(n));
        chart.CaptionColor(static_cast<std::uint32_t>(n) << 16);
    }
    for (int n = 0; n < 19; ++n) {
        chart.CaptionIndex(n);
        EXPECT_EQ(chart.Caption(), n == 1 ? QString("Time=") : QString::number(n));
        EXPECT_EQ(chart.CaptionColor(), static_cast<std::uint32_t>(n) << 16);
    }
    for (const int none : {-1, 19}) {
        chart.CaptionIndex(none);
        chart.Caption("lost");
        EXPECT_EQ(chart.Caption(), QString());
    }
}

TEST_F(StripChartMembers, PropertiesCanBeReachedByName) {
    for (const char* name : {"YFloor", "YLow", "YCeiling", "YHigh"}) {
        EXPECT_TRUE(chart.setProperty(name, 12.5)) << name;
        EXPECT_EQ(chart.property(name).toDouble(), 12.5) << name;
    }
    EXPECT_EQ(chart.YFloor(), 12.5);
    EXPECT_TRUE(chart.setProperty("StripSetting24", 0));
}

} // namespace
} // namespace tqx
