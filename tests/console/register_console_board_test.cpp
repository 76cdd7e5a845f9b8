#include "console/register_console_fixture.h"
#include "console/simulated_bench.h"

#include <device/register_map.h>

namespace tqx {
namespace {

struct OnSimulatedBench {
    test::SimulatedBench simulated;
};

/// From the mouse down to the lines of the bus.
class RegisterConsoleOnTheBoard : public testing::Test,
                                  protected OnSimulatedBench,
                                  protected RegisterConsoleHands {
protected:
    RegisterConsoleOnTheBoard()
        : RegisterConsoleHands(simulated.Bench) {}
};

TEST_F(RegisterConsoleOnTheBoard, EveryRowShowsItsNameItsLegendsItsEntryFlagAndItsByte) {
    for (const RegisterEntry& entry : RegisterMap) {
        const int address = entry.Address;
        ClickRow(address);
        EXPECT_EQ(Row(address).Caption().toStdString(), entry.Caption);
        EXPECT_EQ(Text("current_reg_type_label"), entry.TypeLabel);
        EXPECT_EQ(Text("current_reg_address_label"),
                  QString::number(address, 16).toUpper().toStdString());
        for (std::size_t bit = 0; bit < 8; ++bit) {
            EXPECT_EQ(Text(QString("bitname(%1)").arg(bit)), entry.Legends[bit]) << address;
        }
        for (const char* control : {"Text6", "Text7", "Command4", "Command5"}) {
            EXPECT_EQ(Find(control).isEnabled(), entry.Entry) << address << control;
        }
        const unsigned value = simulated.Board.TheChip().Read(entry.Address);
        EXPECT_EQ(Text("p_Value_read_hex_label"),
                  QString::number(value, 16).toUpper().toStdString());
        EXPECT_EQ(Text("p_Value_read_dec_label"), std::to_string(value));
        EXPECT_EQ(Bits(), QString::number(0x100 + value, 2).mid(1).toStdString());
    }
}

TEST_F(RegisterConsoleOnTheBoard, FlipsAndEntriesReachTheChip) {
    ClickRow(0x60);
    Enter("HexTXT", "5A");
    ClickBit(0);
    EXPECT_EQ(simulated.Board.TheChip().Read(0x60), 0x5B);
    Enter("DecTXT", "200");
    EXPECT_EQ(simulated.Board.TheChip().Read(0x60), 200);
    ClickRow(0x60);
    EXPECT_EQ(Text("p_Value_read_hex_label"), "C8");
}

TEST_F(RegisterConsoleOnTheBoard, ABitOfAReadOnlyRegisterFlipsBack) {
    ClickRow(0x16);
    EXPECT_EQ(Bits(), "01000001");
    ClickBit(3);
    EXPECT_EQ(Bits(), "01000001");
}

TEST_F(RegisterConsoleOnTheBoard, AChipThatIsGoneIsAByteLikeAnyOther) {
    simulated.Board.Plugged(false);
    ClickRow(0x16);
    EXPECT_EQ(Text("p_Value_read_hex_label"), "FF");
    simulated.Board.Plugged(true);
    ClickRow(0x16);
    EXPECT_EQ(Text("p_Value_read_hex_label"), "41");
}

} // namespace
} // namespace tqx
