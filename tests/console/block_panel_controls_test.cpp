#include "console/block_panel_fixture.h"
#include "support/recorded_bench.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BlockPanelControls : public testing::Test {
protected:
    test::RecordedBench recorded;
    test::RecordingLink& link = recorded.Link;
    BlockPanelUnderTest panel{recorded.Bench};

    void SetUp() override {
        link.SlaveAddress(0x58);
        for (std::size_t i = 0; i < link.ReadFrame.size(); ++i) {
            link.ReadFrame[i] = static_cast<std::uint8_t>(i);
        }
        link.Take();
    }

    void Paste(int column, const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(&panel.WriteBox(column), QKeySequence::Paste);
    }
};

TEST_F(BlockPanelControls, OneEraseButtonGoesWithALinkThatStartsOnTheSMBus) {
    EXPECT_TRUE(panel.Find("EraseEPROMCMD").isEnabled());
    link.ActiveMedium(ActiveSMBus);
    panel.Panel.Load();
    EXPECT_FALSE(panel.Find("EraseEPROMCMD").isEnabled());
    EXPECT_TRUE(panel.Find("EraseEEPROMCMD").isEnabled());
}

TEST_F(BlockPanelControls, WindowsAreAskedFor) {
    const QSignalSpy erase(&panel.Panel, &BlockPanel::EraseEEPROMWanted);
    const QSignalSpy coms(&panel.Panel, &BlockPanel::EEPROMComsWanted);
    const QSignalSpy closeAll(&panel.Panel, &BlockPanel::CloseAllEEPROMWanted);
    panel.Click("EraseEPROMCMD");
    panel.Click("EraseEEPROMCMD");
    panel.Click("EEPROMComsCMD");
    panel.Click("CloseAllEEPROMCMD");
    EXPECT_EQ(erase.count(), 2);
    EXPECT_EQ(coms.count(), 1);
    EXPECT_EQ(closeAll.count(), 1);
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(BlockPanelControls, UsePECTellsTheLinkAndClearsTheResult) {
    panel.Click("UsePECCHK");
    panel.Click("BlockReadCMD");
    EXPECT_EQ(panel.Text("PECStatusLBL"), "PEC was OK");
    link.Take();
    panel.Click("UsePECCHK");
    EXPECT_THAT(link.Take(), ElementsAre("BoardBus.UsePEC 0"));
    EXPECT_EQ(panel.Text("PECStatusLBL"), "");
    EXPECT_EQ(panel.MarkColour(), QColor(128, 128, 128));
    panel.Click("UsePECCHK");
    EXPECT_EQ(panel.Text("PECStatusLBL"), "PEC Status");
}

TEST_F(BlockPanelControls, TheHighByteGoesWithTheEEPROM) {
    EXPECT_FALSE(panel.Find("EEPROMHighByteCOMBO").isEnabled());
    panel.Click("AccessEEPROMCHK");
    EXPECT_TRUE(panel.Find("EEPROMHighByteCOMBO").isEnabled());
}

TEST_F(BlockPanelControls, CleaningUpAndFilling) {
    panel.Click("UsePECCHK");
    panel.Click("BlockReadCMD");
    panel.Click("ReadDataFillCMD");
    EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 3), "2 3 4");
    EXPECT_EQ(panel.Row("BlockWriteTXT", 32, 32), "21");
    panel.Click("ClearFcsCMD");
    EXPECT_EQ(panel.Row("FcsLBL", 1, 1) + panel.Row("FcsLBL", 32, 32), "------");
    EXPECT_EQ(panel.PECReadOuts(), "--- --- --- ---");
    EXPECT_EQ(panel.Row("ReadDataLBL", 1, 1), "2");
    panel.Click("ClearReadCMD");
    EXPECT_EQ(panel.Row("ReadDataLBL", 1, 1), "---");
    panel.Click("ReadDataFillCMD");
    EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 2), "0 0");
}

TEST_F(BlockPanelControls, ARandomFillIsTheSameOnEveryRun) {
    panel.Click("RandDataFillCMD");
    const std::string first = panel.Row("BlockWriteTXT", 1, 32);
    panel.Click("RandDataFillCMD");
    EXPECT_NE(panel.Row("BlockWriteTXT", 1, 32), first) << "the sequence goes on within a run";
    BlockPanelUnderTest nextRun(recorded.Bench);
    nextRun.Click("RandDataFillCMD");
    EXPECT_EQ(nextRun.Row("BlockWriteTXT", 1, 32), first);
}

TEST_F(BlockPanelControls, PastedBytesFillTheBoxesThatFollow) {
    struct {
        int First;
        const char* Text;
        const char* Row; // of the boxes from the first one on
        int Last;
    } const table[] = {
        {1, "00 1A ff", "0 1A FF", 3},     {1, "A1B2C3", "A1 B2 C3", 3},
        {1, "0x10, 0X2f;3", "10 2F 3", 3}, {4, "0Ah\n0bH\t0C", "A B C", 6},
        {30, "AA:BB:CC", "AA BB CC", 32},  {32, " 7 ", "7", 32},
        {1, "0102 3\r\n04", "1 2 3 4", 4},
    };

    for (const auto& row : table) {
        Paste(row.First, row.Text);
        EXPECT_EQ(panel.Row("BlockWriteTXT", row.First, row.Last), row.Row);
    }
    EXPECT_THAT(panel.Messages, IsEmpty());

    EXPECT_FALSE(panel.Find("CopyReadingCMD").isEnabled()) << "there is no reading yet";
    panel.Click("BlockReadCMD");
    panel.Click("CopyReadingCMD");
    Paste(1, QApplication::clipboard()->text());
    EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 32), panel.Row("ReadDataLBL", 1, 32));
}

TEST_F(BlockPanelControls, WhatCannotBePastedIsTold) {
    Paste(1, "55 66");
    for (const char* bad : {"12 xy", "123", "0x", "hello", "-1"}) {
        panel.Messages.clear();
        Paste(1, bad);
        EXPECT_THAT(panel.Messages, ElementsAre("Error|The text pasted is no list of hexadecimal "
                                                "bytes.|1"))
            << bad;
        EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 2), "55 66") << bad;
    }
    panel.Messages.clear();
    Paste(31, "1 2 3");
    EXPECT_EQ(panel.Row("BlockWriteTXT", 31, 32), "1 2");
    EXPECT_THAT(panel.Messages,
                ElementsAre("Error|Only the first 2 of the 3 bytes pasted have a box.|1"));
}

} // namespace
} // namespace tqx
