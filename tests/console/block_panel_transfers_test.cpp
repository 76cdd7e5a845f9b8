#include "console/block_panel_fixture.h"
#include "support/recorded_bench.h"

#include <QColor>

namespace tqx {
namespace {

using testing::ElementsAre;

class BlockPanelTransfers : public testing::Test {
protected:
    test::RecordedBench recorded;
    test::RecordingLink& link = recorded.Link;
    BlockPanelUnderTest panel{recorded.Bench};

    void SetUp() override {
        link.SlaveAddress(0x58);
        link.Registers[0x20] = 0x77;
        for (std::size_t i = 0; i < link.ReadFrame.size(); ++i) {
            link.ReadFrame[i] = static_cast<std::uint8_t>(i);
            link.Trace[i] = static_cast<std::uint8_t>(0xC0 + i);
        }
        link.PEC = 0x9;
        link.Take();
    }

    void UsePEC() {
        panel.Click("UsePECCHK");
        link.Take();
    }

    void StartAt(const char* high, const char* low) {
        panel.Click("AccessEEPROMCHK");
        panel.Find<QComboBox>("EEPROMHighByteCOMBO").setCurrentText(high);
        panel.Type("LowByteTXT", low);
    }
};

TEST_F(BlockPanelTransfers, AReadOfTheEEPROMWithPEC) {
    UsePEC();
    StartAt("9F", "a0");
    panel.Click("BlockReadCMD");
    EXPECT_THAT(link.Take(),
                ElementsAre("PrinterPortLink.BurstMode 1", "BoardBus.WriteByte 58 13 81",
                            "EEPROMLink.ReadEEPROM 9F A0", "BoardBus.ClearPointerFlag 0",
                            "BoardBus.UsePEC 1", "BoardBus.BlockRead AA A",
                            "BoardBus.ByteDelay us 0", "PrinterPortLink.BurstMode 0"));
    EXPECT_EQ(panel.Row("FcsLBL", 1, 2), "C2 C3");
    EXPECT_EQ(panel.Row("FcsLBL", 32, 32), "E1");
    EXPECT_EQ(panel.PECReadOuts(), "C0 --- C1 9");
    EXPECT_EQ(panel.Text("PECStatusLBL"), "PEC was OK");
    EXPECT_EQ(panel.MarkColour(), QColor(0, 192, 0));
}

TEST_F(BlockPanelTransfers, AWriteOfFiveBytesToTheEEPROMWithPEC) {
    UsePEC();
    StartAt("81", "40");
    panel.Type("ByteCountTXT", "5");
    panel.Click("RandDataFillCMD");
    panel.Type("BlockWriteTXT(1)", "11");
    link.PECGood = false;
    panel.Click("BlockWriteCMD");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.ByteDelay us 3E8", "BoardBus.UsePEC 1",
                            "BoardBus.EEPROMTarget 1", "BoardBus.ReadByte 58 13",
                            "BoardBus.ReadByte 58 13", "BoardBus.WriteByte 58 13 82",
                            "EEPROMLink.ReadEEPROM 81 40", "BoardBus.ClearPointerFlag 0",
                            "BoardBus.BlockWrite 5 11 22 E6 D4 20", "BoardBus.WriteByte 58 13 81",
                            "BoardBus.ByteDelay us 0", "BoardBus.EEPROMTarget 0"));
    EXPECT_EQ(panel.Row("FcsLBL", 1, 6), "C3 C4 C5 C6 C7 ---");
    EXPECT_EQ(panel.PECReadOuts(), "C0 C1 C2 9");
    EXPECT_EQ(panel.Text("PECStatusLBL"), "PEC Failed");
    EXPECT_EQ(panel.MarkColour(), QColor(192, 0, 0));
    EXPECT_EQ(panel.Find<NumberEntry>("AddPTRTXT").text(), "A0");
    EXPECT_TRUE(panel.Member("ReadDataLBL", 5).isEnabled());
    EXPECT_FALSE(panel.Member("ReadDataLBL", 6).isEnabled());

    panel.Click("BlockReadCMD");
    EXPECT_EQ(panel.Find<NumberEntry>("ByteCountTXT").text(), "20");
    EXPECT_TRUE(panel.Member("ReadDataLBL", 32).isEnabled());
}

TEST_F(BlockPanelTransfers, TheWriteProtectBitRefusesAWrite) {
    link.Registers[0x13] = 0x08;
    panel.Click("BlockWriteCMD");
    EXPECT_THAT(panel.Messages, ElementsAre("Error|The EEPROM write protect bit is set, the EEPROM "
                                            "cannot be written to.|1"));
    EXPECT_THAT(link.Take(),
                testing::Not(testing::Contains(testing::StartsWith("BoardBus.BlockWrite"))));
    EXPECT_TRUE(panel.ButtonsUsable());
}

TEST_F(BlockPanelTransfers, ALinkErrorPassesAndThePanelCanBeUsedAgain) {
    UsePEC();
    panel.Click("AccessEEPROMCHK");
    for (const char* button : {"BlockReadCMD", "BlockWriteCMD"}) {
        panel.Click(button);
        const std::vector<std::string> whole = link.Take();
        for (std::size_t failing = 0; failing < whole.size(); ++failing) {
            link.FailOn = whole[failing];
            panel.Click(button);
            EXPECT_EQ(recorded.TakeFailures(), 1);
            link.FailOn.clear();
            panel.Panel.Recover();
            EXPECT_TRUE(panel.ButtonsUsable()) << whole[failing];
            EXPECT_NE(panel.Text("PECStatusLBL"), "Please Wait....") << whole[failing];
            link.Take();
            panel.Click(button);
            EXPECT_EQ(link.Take(), whole);
        }
    }
    link.FailOn = "BoardBus.BlockWrite";
    panel.Click("BlockWriteCMD");
    EXPECT_EQ(recorded.TakeFailures(), 1);
    EXPECT_FALSE(panel.ButtonsUsable()) << "until the user was told";
    panel.Panel.Enter();
    EXPECT_FALSE(panel.ButtonsUsable()) << "coming back to the panel changes nothing";
}

} // namespace
} // namespace tqx
