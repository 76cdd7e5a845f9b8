#include "board_fixture.h"

#include <device/channel_table.h>
#include <link/link_new_com_port.h>

#include <tuple>

namespace tqx::sim {
namespace {

using namespace std::chrono_literals;

constexpr std::uint8_t CompanyID = 0x16;
constexpr std::uint8_t Mode = 0x13;

/// A block starts at an unnamed register that stores what it is given.
constexpr std::uint8_t Scratch = 0x70;

using SimulatedBoardTest = BoardTest;

TEST(SimulatedBoard, AnswersAtItsAddressAndInItsBoardModeOnly) {
    for (const bool boardMode : {false, true}) {
        for (const std::uint8_t address : {0x58, 0x5A, 0x5C}) {
            SimulatedBoard board({.BoardMode = boardMode, .SlaveAddress = address});
            LinkRoot link(board.Factory());
            BoardBus& bus = link->PrinterPortLink().BoardBus();
            for (const std::uint8_t asked : {0x00, 0x58, 0x5A, 0x5C}) {
                for (const bool mode : {false, true}) {
                    bus.BoardMode(mode);
                    const bool here = mode == boardMode && asked == address;
                    EXPECT_EQ(bus.ReadByte(asked, CompanyID) == 0x41, here) << +asked << mode;
                }
                EXPECT_EQ(link->SMBusLink().ReadByte(asked / 2, CompanyID) == 0x41,
                          asked == address);
            }
        }
    }
}

TEST_F(SimulatedBoardTest, EEPROMIsErasedByPageAndProgrammedByByte) {
    Write(Mode, 0x02);
    EEPROMBus().WriteEEPROM(0x81, 0x3F, 0x0F);
    EEPROMBus().WriteEEPROM(0x81, 0x40, 0x0F);
    EEPROMBus().WriteEEPROM(0x81, 0x40, 0xF5); // programming only clears bits
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x81, 0x40), 0x05);
    Write(Mode, 0x04);
    EEPROMBus().ErasePage(0x81, 0x41, 0);
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x81, 0x40), 0xFF);
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x81, 0x3F), 0x0F);
}

TEST_F(SimulatedBoardTest, PulledPlugAndPowerSilenceTheChipOnBothMedia) {
    const auto silent = [this] {
        return Read(CompanyID) == 0xFF && SMBus().ReadByte(0x2C, CompanyID) == 0xFF;
    };
    Write(Scratch, 0x12);
    Write(Mode, 0x02);
    EEPROMBus().WriteEEPROM(0x90, 0, 0x34);

    Board.Plugged(false);
    EXPECT_TRUE(silent());
    Board.Plugged(true);
    EXPECT_EQ(Read(Scratch), 0x12);

    Board.Powered(false);
    EXPECT_TRUE(silent());
    Board.Powered(true);
    EXPECT_EQ(Read(Scratch), 0x00);
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x90, 0), 0x34);
}

TEST_F(SimulatedBoardTest, WriteProtectJumperRefusesAndShowsInTheModeRegister) {
    const auto program = [this](std::uint8_t value) {
        EEPROMBus().WriteEEPROM(0x90, 0, value);
        return EEPROMBus().ReadEEPROM(0x90, 0);
    };
    Write(Mode, 0x02);
    Board.TheChip().WriteProtectPin(true);
    EXPECT_EQ(Read(Mode), 0x0A);
    EXPECT_EQ(program(0x12), 0xFF);
    Write(Mode, 0x0A); // as a host does that keeps the bit that it has read
    Board.TheChip().WriteProtectPin(false);
    EXPECT_EQ(Read(Mode), 0x02);
    EXPECT_EQ(program(0x12), 0x12);

    Write(Mode, 0x0A); // the bit by itself
    Board.TheChip().WriteProtectPin(true);
    Write(Mode, 0x04);
    Board.TheChip().WriteProtectPin(false);
    EXPECT_EQ(Read(Mode), 0x0C);
    EEPROMBus().ErasePage(0x90, 0, 0);
    EXPECT_EQ(EEPROMBus().ReadEEPROM(0x90, 0), 0x12);
}

TEST_F(SimulatedBoardTest, TimeComesFromTheClockThatItWasGiven) {
    EXPECT_EQ(Read(0x38), 0xFF); // the fan stands at power on
    Time = 20s;
    EXPECT_NEAR(Read(0x38), 1350000.0 / (8 * 4400), 2);
    Time = 40s;
    Board.Powered(false);
    Board.Powered(true);
    EXPECT_EQ(Read(0x38), 0xFF);
}

/// The model has a table of its own, so that neither can be wrong unseen.
TEST_F(SimulatedBoardTest, ItsInputsStandWhereTheProgramLooksForThem) {
    LinkNewComPort bus(Link);
    ChannelTable table(bus);
    table.ConfigureChannels();
    std::size_t input = 0;
    const auto expectNext = [&input](InputKind kind, int value, int high, int low, float min = 0,
                                     float max = 0) {
        const InputFacts& facts = ChipInputs.at(input);
        EXPECT_EQ(static_cast<std::size_t>(facts.Input), input);
        EXPECT_EQ(std::tuple(facts.Kind, facts.Value, facts.HighLimit, facts.LowLimit),
                  std::tuple(kind, value, high, low))
            << input;
        EXPECT_FLOAT_EQ(static_cast<float>(facts.Min), min) << input;
        EXPECT_FLOAT_EQ(static_cast<float>(facts.Max), max) << input;
        ++input;
    };
    for (const Temperature& channel : table.Temperatures) {
        expectNext(InputKind::Temperature, channel.ValueAddressPointer, channel.MaxAddressPointer,
                   channel.MinAddressPointer);
    }
    for (const Fan& channel : table.Fans) {
        expectNext(InputKind::Fan, channel.ValueAddressPointer, channel.LimitAddressPointer,
                   channel.LimitAddressPointer);
    }
    for (const Voltage& channel : table.Voltages) {
        expectNext(InputKind::Voltage, channel.ValueAddrPtr, channel.HighLimitPtr,
                   channel.LowLimitPtr, channel.MinVoltage, channel.MaxVoltage);
    }
    EXPECT_EQ(input, ChipInputCount);
}

} // namespace
} // namespace tqx::sim
