#include "support/recorded_bench.h"

#include <device/register_map.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::ElementsAreArray;

class ChannelTableTest : public testing::Test {
protected:
    test::RecordedBench recorded;
    test::RecordingLink& link = recorded.Link;
    Bench& bench = recorded.Bench;

    static std::string CaptionAt(std::int16_t address) {
        return std::string(RegisterMap.at(static_cast<std::size_t>(address)).Caption);
    }

    std::string CaptionsOfVoltage(int row) {
        const Voltage& at = bench.Channels.VoltageOfRow(row);
        return CaptionAt(at.ValueAddrPtr) + ", " + CaptionAt(at.LowLimitPtr) + ", " +
               CaptionAt(at.HighLimitPtr);
    }

    std::string CaptionsOfTemperature(int row) {
        const Temperature& at = bench.Channels.TemperatureOfRow(row);
        return CaptionAt(at.ValueAddressPointer) + ", " + CaptionAt(at.MinAddressPointer) + ", " +
               CaptionAt(at.MaxAddressPointer);
    }
};

/// The register map names the channels in its own words, so the two tables check each other.
TEST_F(ChannelTableTest, ChannelsStandOnTheRegistersThatCarryTheirName) {
    bench.Channels.ConfigureChannels();
    for (int n = 0; n < 8; ++n) {
        const Fan& fan = bench.Channels.FanOfRow(7 + n);
        const std::string name = "Fan" + std::to_string(n);
        EXPECT_EQ(fan.Number, n);
        EXPECT_EQ(CaptionAt(fan.ValueAddressPointer), name + " Val");
        EXPECT_EQ(CaptionAt(fan.LimitAddressPointer), name + " HighLim");
    }
    for (int n = 0; n < 9; ++n) {
        const std::string name = "Ain" + std::to_string(n);
        EXPECT_EQ(CaptionsOfVoltage(20 + n),
                  name + " Val, " + name + " LowLim, " + name + " HighLim");
    }
    EXPECT_EQ(CaptionsOfVoltage(15), "VBatt Val, Vbatt LowLim, Vbatt HighLim");
    EXPECT_EQ(CaptionsOfVoltage(16), "5V Val, 5V LowLim, 5V HighLim");
    EXPECT_EQ(CaptionsOfVoltage(17), "-12V Val, -12V LowLim, -12V HighLim");
    EXPECT_EQ(CaptionsOfVoltage(18), "+12V Val, +12V LowLim, +12V HighLim");
    EXPECT_EQ(CaptionsOfVoltage(19), "Vccp Val, Vccp LowLim, Vccp HighLim");
    EXPECT_EQ(CaptionsOfVoltage(29), "TDM2/Ain9 Val, TDM2/Ain9 LowLim, TDM2/Ain9 HighLim");
    EXPECT_EQ(CaptionsOfVoltage(30), "3.3VSTBY Val, 3.3VSTBY LowLim, 3.3VSTBY High Lim");
    EXPECT_EQ(CaptionsOfVoltage(31), "3.3VMAIN Val, 3.3V MAIN LowLim, 3.3VMAIN HighLim");
    EXPECT_EQ(CaptionsOfTemperature(3), "Int Temp Val, IntTemp LowLim, IntTemp HighLim");
    EXPECT_EQ(CaptionsOfTemperature(4), "TDM1 Val, TDM1 LowLim, TDM1 HighLim");
    EXPECT_EQ(CaptionsOfTemperature(5), "TDM2/Ain9 Val, TDM2/Ain9 LowLim, TDM2/Ain9 HighLim");
}

TEST_F(ChannelTableTest, DefaultLimitsGoOutAsTheseBytesInThisOrder) {
    bench.Channels.ConfigureChannels();
    bench.Bus.BusCell.SlaveAddress = 0x2D;
    link.Take();
    bench.Channels.WriteDefaultLimits();
    std::vector<std::string> expected;
    for (const char* write :
         {"69 0",  "68 5A", "48 0",  "40 5A", "49 0",  "41 5A",                      // temperatures
          "60 FF", "61 FF", "62 FF", "63 FF", "64 FF", "65 FF", "66 FF", "67 FF",    // fans
          "6B E",  "6A E7", "4C 1B", "44 E6", "4F 1A", "47 E5", "4E 1B", "46 E6",    // rails
          "4D 1B", "45 E6", "58 1B", "50 E6", "59 1B", "51 E6", "5A 1B", "52 E6",    // from Vccp on
          "5B 1B", "53 E6", "5C 1B", "54 E6", "5D 1B", "55 E6", "5E 1B", "56 E7",    // Ain 3 to
          "5F 1B", "57 E7", "6D 1B", "6C E7", "4A 1B", "42 E6", "4B 1B", "43 E6"}) { // 3.3 V main
        expected.push_back(std::string("SMBusLink.WriteByte 2D ") + write);
    }
    EXPECT_THAT(link.Take(), ElementsAreArray(expected));
}

} // namespace
} // namespace tqx
