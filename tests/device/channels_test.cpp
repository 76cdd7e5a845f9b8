#include "support/recorded_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <map>

namespace tqx {
namespace {

class Channels : public testing::Test {
protected:
    test::RecordedBench recorded;
    test::RecordingLink& link = recorded.Link;
    Bench& bench = recorded.Bench;

    void SetUp() override {
        bench.Bus.BusCell.SlaveAddress = 0x2C;
        bench.Channels.ConfigureChannels();
        link.Take();
    }

    /// All fans convert with this divisor from here on.
    void UseDivisor(int divisor) {
        bench.Channels.Calculations.FanDivisors.fill(static_cast<std::int16_t>(divisor));
    }

    float VoltsOfCount(int row, int count) {
        Voltage& voltage = bench.Channels.VoltageOfRow(row);
        link.Registers.at(static_cast<std::size_t>(voltage.ValueAddrPtr)) =
            static_cast<std::uint8_t>(count);
        return voltage.Value();
    }

    int WrittenLowLimit(int row, float volts) {
        Voltage& voltage = bench.Channels.VoltageOfRow(row);
        voltage.LowLimit(volts);
        return link.Registers.at(static_cast<std::size_t>(voltage.LowLimitPtr));
    }
};

TEST_F(Channels, TachometerCountsBecomeSpeeds) {
    struct {
        int Divisor;
        std::uint8_t Count;
        double Speed;
    } const table[] = {
        {1, 0, 10000},  {2, 0, 10074},   {4, 0, 10227},   {8, 0, 10546},  // a fan at full speed
        {1, 255, 5294}, {2, 255, 2647},  {4, 255, 1323},  {8, 255, 661},  // a fan that stands
        {1, 136, 9926}, {1, 135, 10000}, {1, 134, 10000}, {8, 16, 10546}, // near the ceiling
    };

    for (const auto& row : table) {
        UseDivisor(row.Divisor);
        link.Registers[0x38] = row.Count;
        EXPECT_EQ(bench.Channels.Fans[0].Speed(), row.Speed) << row.Divisor << " " << +row.Count;
    }
    link.Registers[0x60] = 255;
    EXPECT_EQ(bench.Channels.Fans[0].Limit(), 661);
}

TEST_F(Channels, FanLimitsBecomeCounts) {
    struct {
        int Divisor;
        double Rpm;
        int Count;
    } const table[] = {
        {1, 50, 255},    {2, 50, 255}, {4, 50, 255}, {8, 50, 255}, {8, 1000, 168}, {1, 5295, 254},
        {1, 10000, 135}, {1, 1, 255},  {1, 0, 255},  {1, 2e6, 0},  {1, -100, 0},
    };

    for (const auto& row : table) {
        UseDivisor(row.Divisor);
        bench.Channels.FanOfRow(7).Limit(row.Rpm);
        EXPECT_EQ(link.Registers[0x60], row.Count) << row.Divisor << " " << row.Rpm;
    }
}

TEST_F(Channels, CountsBecomeVolts) {
    EXPECT_FLOAT_EQ(VoltsOfCount(30, 192), 3.335F);
    EXPECT_FLOAT_EQ(VoltsOfCount(17, 255), 2.428F);
    EXPECT_FLOAT_EQ(VoltsOfCount(17, 55), -11.963F);
    for (int row = FirstVoltageRow; row < RowCount; ++row) {
        EXPECT_EQ(VoltsOfCount(row, 0), VoltsOfCount(row, 1)) << row;
        EXPECT_EQ(VoltsOfCount(row, 255), bench.Channels.VoltageOfRow(row).MaxVoltage) << row;
    }
}

TEST_F(Channels, VoltLimitsBecomeTheNearestByteOfTheirScale) {
    struct {
        int Row;
        float Volts;
        int Count;
    } const table[] = {
        {30, 3.335F, 193},
        {17, -15.92F, 0},
        {17, 2.428F, 255},
        {17, -12.03F, 55}, // on the scale
        {16, -3, 0},
        {16, 1000, 255},
        {17, -40, 0},
        {17, 40, 255}, // beyond it
        {17, std::numeric_limits<float>::quiet_NaN(), 0},
    };

    for (const auto& row : table) {
        EXPECT_EQ(WrittenLowLimit(row.Row, row.Volts), row.Count) << row.Row << " " << row.Volts;
    }
    for (const int row : {15, 17, 18, 29}) {
        EXPECT_EQ(WrittenLowLimit(row, 0), WrittenLowLimit(row, 1)) << row;
        EXPECT_EQ(WrittenLowLimit(row, 0.0004F), WrittenLowLimit(row, 1)) << row;
    }
}

TEST_F(Channels, TemperaturesAreSignAndMagnitude) {
    Temperature& temperature = bench.Channels.TemperatureOfRow(3);
    for (const auto& [byte, degrees] :
         std::map<std::uint8_t, int>{{0x00, 0}, {0x7F, 127}, {0x80, 0}, {0x81, -1}, {0xFF, -127}}) {
        link.Registers[0x1F] = byte;
        EXPECT_EQ(temperature.Value(), degrees);
    }
    for (int degrees = -127; degrees <= 127; ++degrees) {
        temperature.MinLimit(static_cast<std::int16_t>(degrees));
        temperature.MaxLimit(static_cast<std::int16_t>(-degrees));
        ASSERT_EQ(temperature.MinLimit(), degrees);
        ASSERT_EQ(temperature.MaxLimit(), -degrees);
    }
}

TEST_F(Channels, DegreesWithoutAByteOfTheirOwnStayWithinAByte) {
    const std::map<std::int16_t, int> bytes{{-32768, 0xFF}, {-129, 0xFF}, {-128, 0x80}, {128, 0x80},
                                            {255, 0xFF},    {256, 0x7F},  {32767, 0x7F}};
    for (const auto& [degrees, byte] : bytes) {
        bench.Channels.TemperatureOfRow(4).MaxLimit(degrees);
        EXPECT_EQ(link.Registers[0x40], byte) << degrees;
    }
}

} // namespace
} // namespace tqx
