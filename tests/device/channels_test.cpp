#include "support/recorded_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace tqx {
namespace {

using testing::ElementsAre;

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

    std::uint8_t WrittenFanLimit(double rpm) {
        bench.Channels.FanOfRow(7).Limit(rpm);
        return link.Registers[0x60];
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
    struct Case {
        int Divisor;
        int Count;
        double Speed;
    };

    for (const auto& [divisor, count, speed] :
         {Case{1, 0, 10000}, Case{2, 0, 10074}, Case{4, 0, 10227}, Case{8, 0, 10546},
          Case{1, 255, 5294}, Case{2, 255, 2647}, Case{4, 255, 1323}, Case{8, 255, 661},
          Case{1, 136, 9926}, Case{1, 135, 10000}, Case{1, 134, 10000}, Case{8, 16, 10546}}) {
        UseDivisor(divisor);
        link.Registers[0x38] = static_cast<std::uint8_t>(count);
        EXPECT_EQ(bench.Channels.Fans[0].Speed(), speed) << divisor << " " << count;
    }
}

TEST_F(Channels, FanLimitsBecomeCounts) {
    for (const int divisor : {1, 2, 4, 8}) {
        UseDivisor(divisor);
        EXPECT_EQ(WrittenFanLimit(50), 255) << divisor;
    }
    EXPECT_EQ(WrittenFanLimit(1000), 168);
    UseDivisor(1);
    EXPECT_EQ(WrittenFanLimit(5295), 254);
    EXPECT_EQ(WrittenFanLimit(10000), 135);
    EXPECT_EQ(WrittenFanLimit(1), 255);
    EXPECT_EQ(WrittenFanLimit(0), 255);
    EXPECT_EQ(WrittenFanLimit(2e6), 0);
    EXPECT_EQ(WrittenFanLimit(-100), 0);
}

TEST_F(Channels, DivisorsAreReadFromTwoRegistersAndKept) {
    link.Registers[0x02] = 0b11'10'01'00;
    link.Registers[0x03] = 0b00'01'10'11;
    EXPECT_EQ(bench.Channels.Fans[6].Divisor(), 2);
    EXPECT_THAT(link.Take(), ElementsAre("SMBusLink.ReadByte 2C 2", "SMBusLink.ReadByte 2C 3"));
    EXPECT_THAT(bench.Channels.Calculations.FanDivisors, ElementsAre(1, 2, 4, 8, 8, 4, 2, 1));
    link.Registers[0x02] = 0xFF;
    bench.Channels.Fans[0].Speed();
    EXPECT_THAT(link.Take(), ElementsAre("SMBusLink.ReadByte 2C 38"));
    EXPECT_EQ(bench.Channels.Calculations.FanDivisors[0], 1);
    EXPECT_EQ(DivisorFromCode(4), std::nullopt);
    EXPECT_EQ(DivisorFromCode(-1), std::nullopt);
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

TEST_F(Channels, AReadLimitIsNotRounded) {
    link.Registers[0x4C] = 27;
    const float volts = bench.Channels.VoltageOfRow(16).LowLimit();
    EXPECT_FLOAT_EQ(volts, 0.026F + 27 * (6.634F - 0.026F) / 255);
    EXPECT_NE(volts, 0.77F);
}

TEST_F(Channels, VoltLimitsBecomeCounts) {
    EXPECT_EQ(WrittenLowLimit(30, 3.335F), 193);
    EXPECT_EQ(WrittenLowLimit(17, -15.92F), 0);
    EXPECT_EQ(WrittenLowLimit(17, 2.428F), 255);
    for (const int row : {15, 17, 18, 29}) {
        EXPECT_EQ(WrittenLowLimit(row, 0), WrittenLowLimit(row, 1)) << row;
        EXPECT_EQ(WrittenLowLimit(row, 0.0004F), WrittenLowLimit(row, 1)) << row;
    }
}

TEST_F(Channels, VoltsOutsideTheRangeBecomeTheNearestByte) {
    EXPECT_EQ(WrittenLowLimit(16, -3), 0);
    EXPECT_EQ(WrittenLowLimit(16, 1000), 255);
    EXPECT_EQ(WrittenLowLimit(17, -40), 0);
    EXPECT_EQ(WrittenLowLimit(17, 40), 255);
    EXPECT_EQ(WrittenLowLimit(17, std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST_F(Channels, TemperaturesAreSignAndMagnitude) {
    Temperature& temperature = bench.Channels.TemperatureOfRow(3);

    struct Case {
        int Byte;
        int Degrees;
    };

    for (const auto& [byte, degrees] :
         {Case{0x00, 0}, Case{0x7F, 127}, Case{0x80, 0}, Case{0x81, -1}, Case{0xFF, -127}}) {
        link.Registers[0x1F] = static_cast<std::uint8_t>(byte);
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
    struct Case {
        std::int16_t Degrees;
        int Byte;
    };

    for (const auto& [degrees, byte] :
         {Case{-128, 0x80}, Case{128, 0x80}, Case{255, 0xFF}, Case{256, 0x7F}, Case{32767, 0x7F},
          Case{-129, 0xFF}, Case{-32768, 0xFF}}) {
        bench.Channels.TemperatureOfRow(4).MaxLimit(degrees);
        EXPECT_EQ(link.Registers[0x40], byte) << degrees;
    }
}

TEST_F(Channels, EachTransferLeavesItsRegisterAndByteInTheCell) {
    link.Registers[0x2E] = 0x80;
    bench.Channels.VoltageOfRow(18).Value();
    EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0x2E);
    EXPECT_EQ(bench.Bus.BusCell.ReadValue, 0x80);
    bench.Channels.TemperatureOfRow(5).MinLimit(-5);
    EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0x49);
    EXPECT_EQ(bench.Bus.BusCell.WriteValue, 0x85);
}

TEST_F(Channels, AFailedReadPassesThrough) {
    link.FailOn = "SMBusLink.ReadByte 2C 38";
    EXPECT_THROW(bench.Channels.Fans[0].Speed(), LinkError);
}

} // namespace
} // namespace tqx
