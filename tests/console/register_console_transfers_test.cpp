#include "console/register_console_fixture.h"

#include <QPushButton>
#include <QTimer>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RegisterConsoleTransfers : public RegisterConsoleTest {
protected:
    void Select(int index, std::uint8_t value) {
        link.Registers[static_cast<std::size_t>(index)] = value;
        ClickRow(index);
        link.Take();
    }
};

TEST_F(RegisterConsoleTransfers, ABitFlipReadsWritesAndReadsAgain) {
    Select(0x18, 0x81);
    ClickBit(4);
    EXPECT_THAT(link.Take(), ElementsAre("BoardBus.ReadByte 58 18", "BoardBus.PortAddress 378",
                                         "BoardBus.WriteByte 58 18 91", "BoardBus.ReadByte 58 18"));
    EXPECT_EQ(Bits(), "10010001");
    EXPECT_EQ(Text("p_Value_read_hex_label"), "81") << "follows the next click or tick";
    ClickBit(7);
    EXPECT_EQ(link.Registers[0x18], 0x11);
    EXPECT_EQ(Bits(), "00010001");
}

TEST_F(RegisterConsoleTransfers, AFlipGoesToTheRegisterOnViewWhereverThePointerHasGone) {
    bench.Bus.BusCell.RegisterPointer = 0x70;
    ClickBit(0);
    EXPECT_EQ(link.Registers[0x70], 0x01) << "nothing was on view yet";

    Select(0x18, 0x00);
    bench.Bus.BusCell.RegisterPointer = 0x13; // as a tool window or the monitor leaves it
    link.Registers[0x13] = 0x80;
    ClickBit(2);
    EXPECT_EQ(link.Registers[0x18], 0x04);
    EXPECT_EQ(link.Registers[0x13], 0x80);
    EXPECT_EQ(Bits(), "00000100");
}

TEST_F(RegisterConsoleTransfers, ARowWithoutEntryIsDeadToBitsAndEntries) {
    const auto pointerOnABit = [this] {
        QTest::mouseMove(&Find("bit0"));
        return console.cursor().shape();
    };
    for (const int index : {0x17, 0x3F}) {
        Select(index, 0x10);
        ClickBit(0);
        Enter("HexTXT", "5A");
        EXPECT_THAT(link.Take(), IsEmpty()) << index;
        EXPECT_EQ(Bits(), "00010000");
        EXPECT_EQ(Find<NumberEntry>("HexTXT").text(), "5A") << "what was typed stays";
        EXPECT_TRUE(Find("ReadOnlyNote").isVisible());
        EXPECT_EQ(pointerOnABit(), Qt::ArrowCursor);
    }
    Select(0x16, 0x10);
    EXPECT_TRUE(Find("ReadOnlyNote").isHidden());
    EXPECT_EQ(pointerOnABit(), Qt::PointingHandCursor);
    ClickBit(0);
    EXPECT_EQ(link.Registers[0x16], 0x11);
}

TEST_F(RegisterConsoleTransfers, AnEntryWritesAndShowsTheByteSentWithoutReadingBack) {
    Select(0x60, 0x12);
    link.KeepWrites = false;
    Enter("HexTXT", "a5");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.PortAddress 378", "BoardBus.WriteByte 58 60 A5"));
    EXPECT_EQ(Bits(), "10100101");
    EXPECT_EQ(Find<NumberEntry>("DecTXT").text(), "165");
    EXPECT_EQ(Text("p_Value_read_hex_label"), "12");
    EXPECT_EQ(Text("p_Value_written_hex_label"), "A5");
    EXPECT_EQ(Text("p_Value_written_dec_label"), "165");
    Enter("DecTXT", "255");
    EXPECT_EQ(Find<NumberEntry>("HexTXT").text(), "FF");
    EXPECT_THAT(link.Take(), testing::Contains("BoardBus.WriteByte 58 60 FF"));
    Enter("DecTXT", "255");
    EXPECT_THAT(link.Take(), testing::Contains("BoardBus.WriteByte 58 60 FF"))
        << "the same value again is written again";
}

TEST_F(RegisterConsoleTransfers, ContinuousReadingReadsWhereThePointerStands) {
    Select(0x1F, 0x19);
    auto& toggle = Find<QPushButton>("SSRibbon5");
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_EQ(Find<QTimer>("Timer3").interval(), 1);
    link.Registers[0x1F] = 0x2A;
    ASSERT_TRUE(QTest::qWaitFor([&] { return link.Calls.size() >= 3; }));
    EXPECT_EQ(Text("p_Value_read_dec_label"), "42");
    EXPECT_EQ(Bits(), "00101010");
    bench.Bus.BusCell.RegisterPointer = 0x70;
    link.Take();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !link.Calls.empty(); }));
    EXPECT_EQ(link.Calls.front(), "BoardBus.ReadByte 58 70") << "the pointer of the moment";
    EXPECT_EQ(Text("current_reg_address_label"), "70");
    toggle.click();
    EXPECT_FALSE(Find<QTimer>("Timer3").isActive());
}

TEST_F(RegisterConsoleTransfers, AFailedCallLeavesNoFlipAndNoByteOnThePanel) {
    Select(0x60, 0x0F);
    link.FailOn = "BoardBus.WriteByte";
    ClickBit(7);
    EXPECT_EQ(Bits(), "00001111");
    Enter("HexTXT", "FF");
    EXPECT_EQ(recorded.TakeFailures(), 2);
    EXPECT_EQ(Text("p_Value_written_hex_label"), "");
    link.FailOn = "BoardBus.ReadByte";
    ClickRow(0x61);
    EXPECT_EQ(recorded.TakeFailures(), 1);
    EXPECT_EQ(Text("current_reg_type_label"), "Fan1 High Limit");
    EXPECT_EQ(Text("p_Value_read_hex_label") + Bits(), "") << "not the byte of the register before";
}

} // namespace
} // namespace tqx
