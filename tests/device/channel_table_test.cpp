#include "support/recorded_bench.h"

#include <device/register_map.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class ChannelTableTest : public testing::Test {
protected:
    test::RecordedBench recorded;
    test::RecordingLink& link = recorded.Link;
    Bench& bench = recorded.Bench;

    static std::string CaptionAt(std::int16_t address) {
        return std::string(RegisterMap.at(static_cast<std::size_t>(address)).Caption);
    }
};

TEST_F(ChannelTableTest, RowsAreKnownByTheirKind) {
    std::string kinds;
    for (int row = -1; row <= RowCount; ++row) {
        kinds += "HT.FV"[static_cast<int>(KindOfRow(row))];
    }
    EXPECT_EQ(kinds, ".HHHTTT.FFFFFFFFVVVVVVVVVVVVVVVVV.");
    EXPECT_EQ(CaptionOfRow(6), "ExtTemp2");
    EXPECT_EQ(CaptionOfRow(31), "3.3VM");
    EXPECT_EQ(CaptionOfRow(32), "");
    EXPECT_EQ(CaptionOfRow(-1), "");
}

TEST_F(ChannelTableTest, ConfiguringReadsTheTwoDivisorRegistersAndNothingElse) {
    link.RecordGets = true;
    link.Registers[0x02] = 0x00;
    link.Registers[0x03] = 0xFF;
    bench.Channels.ConfigureChannels();
    EXPECT_THAT(link.Take(), ElementsAre("SMBusLink.ReadByte 0 2", "SMBusLink.ReadByte 0 3"));
    EXPECT_THAT(bench.Channels.Calculations.FanDivisors, ElementsAre(1, 1, 1, 1, 8, 8, 8, 8));
}

TEST_F(ChannelTableTest, AFailedDivisorReadPassesThrough) {
    link.FailOn = "SMBusLink.ReadByte 0 3";
    EXPECT_THROW(bench.Channels.ConfigureChannels(), LinkError);
}

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
        const Voltage& ain = bench.Channels.VoltageOfRow(20 + n);
        const std::string name = "Ain" + std::to_string(n);
        EXPECT_EQ(CaptionAt(ain.ValueAddrPtr), name + " Val");
        EXPECT_EQ(CaptionAt(ain.LowLimitPtr), name + " LowLim");
        EXPECT_EQ(CaptionAt(ain.HighLimitPtr), name + " HighLim");
    }

    struct Rail {
        int Row;
        const char* Value;
        const char* Low;
        const char* High;
    };

    for (const auto& [row, value, low, high] :
         {Rail{15, "VBatt Val", "Vbatt LowLim", "Vbatt HighLim"},
          Rail{16, "5V Val", "5V LowLim", "5V HighLim"},
          Rail{17, "-12V Val", "-12V LowLim", "-12V HighLim"},
          Rail{18, "+12V Val", "+12V LowLim", "+12V HighLim"},
          Rail{19, "Vccp Val", "Vccp LowLim", "Vccp HighLim"},
          Rail{29, "TDM2/Ain9 Val", "TDM2/Ain9 LowLim", "TDM2/Ain9 HighLim"},
          Rail{30, "3.3VSTBY Val", "3.3VSTBY LowLim", "3.3VSTBY High Lim"},
          Rail{31, "3.3VMAIN Val", "3.3V MAIN LowLim", "3.3VMAIN HighLim"}}) {
        const Voltage& rail = bench.Channels.VoltageOfRow(row);
        EXPECT_EQ(CaptionAt(rail.ValueAddrPtr), value);
        EXPECT_EQ(CaptionAt(rail.LowLimitPtr), low);
        EXPECT_EQ(CaptionAt(rail.HighLimitPtr), high);
    }
    for (const auto& [row, value, low, high] :
         {Rail{3, "Int Temp Val", "IntTemp LowLim", "IntTemp HighLim"},
          Rail{4, "TDM1 Val", "TDM1 LowLim", "TDM1 HighLim"},
          Rail{5, "TDM2/Ain9 Val", "TDM2/Ain9 LowLim", "TDM2/Ain9 HighLim"}}) {
        const Temperature& temperature = bench.Channels.TemperatureOfRow(row);
        EXPECT_EQ(CaptionAt(temperature.ValueAddressPointer), value);
        EXPECT_EQ(CaptionAt(temperature.MinAddressPointer), low);
        EXPECT_EQ(CaptionAt(temperature.MaxAddressPointer), high);
    }
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

TEST_F(ChannelTableTest, Ain9ReadsTheDefaultLimitsOfTheTemperatureOnItsOwnScale) {
    bench.Channels.ConfigureChannels();
    bench.Channels.WriteDefaultLimits();
    EXPECT_NEAR(bench.Channels.VoltageOfRow(29).LowLimit(), 0.0197, 0.00005);
    EXPECT_NEAR(bench.Channels.VoltageOfRow(29).HighLimit(), 0.885, 0.0005);
    EXPECT_NEAR(bench.Channels.VoltageOfRow(16).LowLimit(), 0.726, 0.0005);
}

TEST_F(ChannelTableTest, ARowOfAnotherKindIsRefused) {
    EXPECT_THROW(bench.Channels.FanOfRow(6), std::out_of_range);
    EXPECT_THROW(bench.Channels.FanOfRow(15), std::out_of_range);
    EXPECT_THROW(bench.Channels.VoltageOfRow(32), std::out_of_range);
    EXPECT_THROW(bench.Channels.TemperatureOfRow(2), std::out_of_range);
}

} // namespace
} // namespace tqx
