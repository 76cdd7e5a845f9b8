#include <device/rounding.h>

#include <cmath>
#include <gtest/gtest.h>

namespace tqx {
namespace {

TEST(Rounding, GoesToTheNearestAndTiesToTheEvenNumber) {
    EXPECT_EQ(RoundToEven(0.5), 0.0);
    EXPECT_EQ(RoundToEven(1.5), 2.0);
    EXPECT_EQ(RoundToEven(-2.5), -2.0);
    EXPECT_EQ(RoundToEven(2.5000001), 3.0);
    EXPECT_DOUBLE_EQ(RoundToEven(0.0625, 3), 0.062);
    EXPECT_DOUBLE_EQ(RoundToEven(0.1875, 3), 0.188);
    EXPECT_DOUBLE_EQ(RoundToEven(-14.08515, 4), -14.0852);
}

TEST(Rounding, KeepsBytesAndIntegersWithinTheirType) {
    EXPECT_EQ(RoundToByte(254.5), 254);
    EXPECT_EQ(RoundToByte(-0.6), 0);
    EXPECT_EQ(RoundToByte(1e30), 255);
    EXPECT_EQ(RoundToByte(std::nan("")), 0);
    EXPECT_EQ(RoundToInteger(-40000.0), -32768);
    EXPECT_EQ(RoundToInteger(40000.0), 32767);
    EXPECT_EQ(RoundToInteger(-0.5), 0);
}

} // namespace
} // namespace tqx
