#include "gpio_config/gpio_config_frm.h"
#include "tools/tool_fixture.h"

#include <QComboBox>

#include <memory>

namespace tqx {
namespace {

using testing::IsEmpty;

class GPIOConfigTest : public test::ToolFixture {
protected:
    std::unique_ptr<GPIOConfigFRM> window;

    QWidget& Window() override { return *window; }

    /// Opens the panel on the registers as they stand.
    void Open() {
        window = std::make_unique<GPIOConfigFRM>(bench);
        window->show();
    }

    QComboBox& Combo(const char* name, int index) { return Find<QComboBox>(name, index); }

    std::string Entry(const char* name, int index) {
        return Combo(name, index).currentText().toStdString();
    }

    /// The entries of the line's lists: function (if it has one), direction, polarity.
    std::string Line(int line) {
        const int selector = line == 16 ? 8 : line;
        const std::string function = line < 8 || line == 16 ? Entry("EnabledCOMBO", selector) : "";
        return function + " " + Entry("DirectionCombo", line) + " " + Entry("Polarity", line);
    }

    bool Editable(int line) {
        const bool direction = Combo("DirectionCombo", line).isEnabled();
        EXPECT_EQ(direction, Combo("Polarity", line).isEnabled());
        return direction;
    }
};

TEST_F(GPIOConfigTest, ReadsTheRegistersInOrderAndShowsTheLinesAsTheyHaveThem) {
    link.Registers[0x01] = 0x0F;
    link.Registers[0x07] = 0x81;
    link.Registers[0x08] = 0b01'10'11'00;
    link.Registers[0x0B] = 0b10'00'00'01;
    Open();
    EXPECT_EQ(link.TakeTraffic(), "R1 R7 R8 R9 RA RB R7");
    EXPECT_EQ(Line(0), "GPIO Input Low");
    EXPECT_EQ(Line(1), "GPIO Output High");
    EXPECT_EQ(Line(2), "GPIO Input High");
    EXPECT_EQ(Line(3), "GPIO Output Low");
    EXPECT_EQ(Line(4), "Fan Input Low");
    EXPECT_EQ(Line(12), " Output Low");
    EXPECT_EQ(Line(15), " Input High");
    EXPECT_EQ(Line(16), "GPIO Input High");
    for (int line = 0; line < 17; ++line) {
        EXPECT_EQ(Editable(line), line < 4 || line > 7) << line;
    }
}

TEST_F(GPIOConfigTest, OneChangeWritesAllFields) {
    link.Registers[0x01] = 0x0F;
    link.Registers[0x07] = 0xBE;
    link.Registers[0x08] = 0x1B;
    link.Registers[0x09] = 0xE4;
    link.Registers[0x0A] = 0x55;
    link.Registers[0x0B] = 0xAA;
    Open();
    Combo("DirectionCombo", 5).setCurrentText("Output"); // of a line that works as a fan input
    link.Take();
    Combo("DirectionCombo", 8).setCurrentText("Input");
    EXPECT_EQ(link.TakeTraffic(), "W1=F R7 W7=BE W8=1B W9=E4 WA=54 WB=AA R7 W7=BE");
    EXPECT_TRUE(Editable(8)) << "a line of no other function, though the THERM pin has one";
}

TEST_F(GPIOConfigTest, ReadAgainChangesListsAndWritesNothing) {
    Open();
    link.Registers[0x01] = 0xFF;
    link.Registers[0x0A] = 0xFF;
    link.Registers[0x07] = 0xC1;
    Click("ReadAgainCMD");
    EXPECT_EQ(Line(8), " Output High");
    EXPECT_EQ(Line(16), "Therm Output High");
    EXPECT_EQ(Line(0), "Fan Input Low");
    EXPECT_THAT(Only(link.Take(), "BoardBus.WriteByte"), IsEmpty());
}

} // namespace
} // namespace tqx
