#include "chip/plant.h"

#include <simulated/chip.h>

#include <gtest/gtest.h>

namespace tqx::sim {
namespace {

using namespace std::chrono_literals;

class ChipTest : public testing::Test {
protected:
    ChipTest() { Model.SetTime(10min); }

    void Force(ChipInput input, double value) { Model.ThePlant().Force(input, value); }

    /// Status bit of an input.
    bool Alarm(ChipInput input) {
        const InputFacts& facts = FactsOf(input);
        return (Model.Read(facts.Status) >> facts.StatusBit & 1) != 0;
    }

    Chip Model;
};

TEST_F(ChipTest, FreshChipMeasuresAndAlarmsNothing) {
    EXPECT_EQ(Model.Read(0x16), 0x41);
    for (int status = 0x20; status <= 0x25; ++status) {
        EXPECT_EQ(Model.Read(static_cast<std::uint8_t>(status)), 0) << status;
    }
    EXPECT_NEAR(Model.Read(0x1F), 40, 3);
    EXPECT_NEAR(0.062 + Model.Read(0x2E) * 0.062259, 12.05, 0.3);
    EXPECT_NEAR(-15.92 + Model.Read(0x2F) * 0.071953, -11.9, 0.3);
}

TEST_F(ChipTest, FanCountFollowsSpeedAndDivisor) {
    struct {
        double RPM;
        std::uint8_t Divisors;
        int Count;
    } const table[] = {{3000, 0xFF, 56},  {3000, 0xFE, 113}, {6000, 0xFC, 225},
                       {3000, 0xFC, 255}, {0, 0xFF, 255},    {1e9, 0xFF, 1}};

    for (const auto& row : table) {
        Force(ChipInput::Fan0, row.RPM);
        Model.Write(0x02, row.Divisors);
        EXPECT_EQ(Model.Read(0x38), row.Count) << row.RPM;
    }
    Force(ChipInput::Fan7, 3000);
    Model.Write(0x03, 0xBF); // divisor 4
    EXPECT_EQ(Model.Read(0x3F), 113);
}

TEST_F(ChipTest, StatusBitOfEveryInputFollowsItsOwnLimits) {
    for (const InputFacts& facts : ChipInputs) {
        Model.Write(0x00, facts.Input >= ChipInput::Ain8 && facts.Input <= ChipInput::Ain9 ? 9 : 1);
        if (facts.Kind == InputKind::Fan) {
            Force(facts.Input, 3000); // count 56
            Model.Write(facts.HighLimit, 56);
            EXPECT_FALSE(Alarm(facts.Input));
            Model.Write(facts.HighLimit, 55);
            EXPECT_TRUE(Alarm(facts.Input));
            continue;
        }
        Force(facts.Input, facts.Kind == InputKind::Temperature ? 30 : (facts.Min + facts.Max) / 2);
        const int value = Model.Read(facts.Value);
        const auto limits = [&](int low, int high) {
            Model.Write(facts.LowLimit, static_cast<std::uint8_t>(low));
            Model.Write(facts.HighLimit, static_cast<std::uint8_t>(high));
            return Alarm(facts.Input);
        };
        EXPECT_FALSE(limits(value, value));
        EXPECT_TRUE(limits(value, value - 1));
        EXPECT_TRUE(limits(value + 1, value + 1));
        Model.ThePlant().Release(facts.Input);
    }
}

TEST_F(ChipTest, TemperatureLimitsAreSignAndMagnitude) {
    Force(ChipInput::IntTemp, -5);
    Model.Write(0x69, 0x8A); // -10
    Model.Write(0x68, 0x83); // -3
    EXPECT_FALSE(Alarm(ChipInput::IntTemp));
    Model.Write(0x69, 0x84); // -4
    EXPECT_TRUE(Alarm(ChipInput::IntTemp));
    Model.Write(0x1E, 0x02); // an offset of +2 is part of the reading
    EXPECT_EQ(Model.Read(0x1F), 0x83);
    EXPECT_FALSE(Alarm(ChipInput::IntTemp));
}

TEST_F(ChipTest, SharedPinMeasuresAVoltageOrATemperature) {
    Force(ChipInput::Ext2Temp, 45);
    Force(ChipInput::Ain8, 2.49);
    Force(ChipInput::Ain9, 0.01);
    Model.Write(0x6C, 0xFE);
    EXPECT_EQ(Model.Read(0x29), 45);
    EXPECT_EQ(Model.Read(0x27), 0);
    EXPECT_FALSE(Alarm(ChipInput::Ain8));
    Model.Write(0x00, 0x09);
    EXPECT_EQ(Model.Read(0x29), 0);
    EXPECT_EQ(Model.Read(0x27), 0xFF);
    EXPECT_TRUE(Alarm(ChipInput::Ain8));
}

TEST_F(ChipTest, SharedPinIsAFanOrAGPIOLine) {
    Force(ChipInput::Fan3, 0);
    Model.Write(0x63, 0x80);
    Model.GPIOLevel(3, true);
    EXPECT_TRUE(Alarm(ChipInput::Fan3));
    EXPECT_EQ(Model.Read(0x24), 0);
    Model.Write(0x01, 0x08);
    EXPECT_FALSE(Alarm(ChipInput::Fan3));
    EXPECT_EQ(Model.Read(0x3B), 0xFF);
    EXPECT_EQ(Model.Read(0x24), 0x08);
}

TEST_F(ChipTest, ValuesStandStillWhileTheChipDoesNotMonitor) {
    Force(ChipInput::Plus12V, 12);
    const std::uint8_t before = Model.Read(0x2E);
    Model.Write(0x00, 0x00);
    Force(ChipInput::Plus12V, 6);
    EXPECT_EQ(Model.Read(0x2E), before);
    Model.Write(0x00, 0x01);
    EXPECT_LT(Model.Read(0x2E), before);
}

TEST_F(ChipTest, OutputsReadBackWhatTheyDrive) {
    Model.Write(0x0A, 0x0D); // GPIO8: output, low active; GPIO9: output, high active
    EXPECT_EQ(Model.Read(0x25), 0x01);
    Model.Write(0x25, 0x02);
    EXPECT_EQ(Model.Read(0x25), 0x02);
    EXPECT_TRUE(Model.GPIOLevel(9));
    Model.Write(0x0A, 0x07); // the polarities the other way round
    EXPECT_EQ(Model.Read(0x25), 0x01);
    Model.GPIOLevel(8, false);
    EXPECT_EQ(Model.Read(0x25), 0x01); // the outside does not move an output
}

TEST_F(ChipTest, Line16StandsOnTheThermPin) {
    Model.GPIOLevel(16, true);
    Model.Write(0x0D, 30);
    Force(ChipInput::IntTemp, 31);
    EXPECT_EQ(Model.Read(0x23), 0x08);
    Model.Write(0x00, 0x21); // a fan control runs on its own
    EXPECT_EQ(Model.Read(0x23), 0x18);
    Model.Write(0x07, 0x01);
    EXPECT_EQ(Model.Read(0x23), 0x90);
    Model.Write(0x07, 0xC1); // output, high active, not active
    EXPECT_EQ(Model.Read(0x23), 0x10);
}

TEST_F(ChipTest, ChassisAlarmLatchesUntilItIsClearedWithTheChassisClosed) {
    const auto clear = [this] {
        Model.Write(0x07, 0x02);
        Model.Write(0x07, 0x00);
    };
    Model.ChassisOpen(true);
    clear();
    EXPECT_EQ(Model.Read(0x23), 0x40);
    Model.ChassisOpen(false);
    EXPECT_EQ(Model.Read(0x23), 0x40);
    clear();
    EXPECT_EQ(Model.Read(0x23), 0x00);
}

TEST_F(ChipTest, EEPROMWritesOnlyInOneModeAndWithoutProtection) {
    struct {
        std::uint8_t Mode;
        int Result;
    } const table[] = {{0x00, 0xFF}, {0x81, 0xFF}, {0x06, 0xFF}, {0x0A, 0xFF},
                       {0x82, 0x0F}, {0x0C, 0x0F}, {0x04, 0xFF}};

    for (const auto& row : table) {
        Model.Write(0x13, row.Mode);
        Model.WriteEEPROM(0x1FFF, 0x0F);
        EXPECT_EQ(Model.ReadEEPROM(0x1FFF), row.Result) << +row.Mode;
    }
}

} // namespace
} // namespace tqx::sim
