#include "console/block_panel_fixture.h"
#include "support/recorded_bench.h"

#include <console/random_fill.h>

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QSignalSpy>

#include <algorithm>
#include <cstring>

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

TEST_F(BlockPanelControls, StandAsTheyAreStored) {
    EXPECT_THAT(link.Take(), IsEmpty());
    const auto& high = panel.Find<QComboBox>("EEPROMHighByteCOMBO");
    EXPECT_EQ(high.count(), 32);
    EXPECT_EQ(high.itemText(0) + high.itemText(31) + high.currentText(), "809F80");
    EXPECT_EQ(panel.Find<NumberEntry>("ByteCountTXT").Text(), "20");
    EXPECT_EQ(panel.Find<NumberEntry>("AddPTRTXT").Text(), "00");
    EXPECT_EQ(panel.Find<NumberEntry>("LowByteTXT").Text(), "0");
    EXPECT_EQ(panel.Row("DataByteLBL", 1, 3), "1 2 3");
    EXPECT_EQ(panel.Row("DataByteLBL", 32, 32), "32");
    EXPECT_EQ(panel.Row("ReadDataLBL", 1, 2), "--- ---");
    EXPECT_EQ(panel.Row("BlockWriteTXT", 31, 32), "00 00");
    EXPECT_EQ(panel.Text("PECStatusLBL"), "PEC Status");
    EXPECT_EQ(panel.Text("NotesLBL"),
              "When executing EEPROM block writes, please make sure you have erased the "
              "appropriate EEPROM address space first. ");
    QStringList captions;
    for (const QGroupBox* group : panel.Panel.findChildren<QGroupBox*>()) {
        captions << group->title();
    }
    captions.sort();
    EXPECT_EQ(captions.join("|"), "Block Read/Write|Clean Up Display|Communications|PEC Results|"
                                  "Register Access|Start Position:|Useful Functions");
}

TEST_F(BlockPanelControls, TheSlaveAddressComesOnEntry) {
    recorded.Bench.Bus.BusCell.SlaveAddress = 0x5C;
    panel.Panel.Enter();
    EXPECT_EQ(panel.Find<NumberEntry>("SlaveAddrTXT").Text(), "5C");
    EXPECT_FALSE(panel.Find("SlaveAddrTXT").isEnabled());
}

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
    panel.Type("LowByteTXT", "gf,x1");
    EXPECT_EQ(panel.Find<NumberEntry>("LowByteTXT").Text(), "F1");
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

    UnseededRandom random;
    for (int i = 0; i < 20000; ++i) {
        ASSERT_LE(random.NextByte(), 254U);
    }
}

TEST_F(BlockPanelControls, TabMovesAlongTheWriteRowAndOnToTheNextBand) {
    panel.WriteBox(1).setFocus();
    for (int column = 2; column <= 32; ++column) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), &panel.WriteBox(column));
    }
}

TEST_F(BlockPanelControls, PastedBytesFillTheBoxesThatFollow) {
    struct {
        int Column;
        const char* Text;
        const char* Row; // from that column on
    } const table[] = {
        {1, "00 1A ff", "0 1A FF"},     {1, "A1B2C3", "A1 B2 C3"},
        {1, "0x10, 0X2f;3", "10 2F 3"}, {4, "0Ah\n0bH\t0C", "A B C"},
        {30, "AA:BB:CC", "AA BB CC"},   {32, " 7 ", "7"},
        {1, "0102 3\r\n04", "1 2 3 4"},
    };

    for (const auto& row : table) {
        Paste(row.Column, row.Text);
        const int bytes =
            1 + static_cast<int>(std::count(row.Row, row.Row + std::strlen(row.Row), ' '));
        EXPECT_EQ(panel.Row("BlockWriteTXT", row.Column, row.Column + bytes - 1), row.Row);
    }
    EXPECT_THAT(panel.Messages, IsEmpty());
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

TEST_F(BlockPanelControls, AReadingCopiedCanBePastedAgain) {
    EXPECT_FALSE(panel.Find("CopyReadingCMD").isEnabled()) << "there is no reading yet";
    panel.Click("BlockReadCMD");
    panel.Click("CopyReadingCMD");
    const QString copied = QApplication::clipboard()->text();
    EXPECT_EQ(copied.toStdString(), "02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 11\n"
                                    "12 13 14 15 16 17 18 19 1A 1B 1C 1D 1E 1F 20 21");
    Paste(1, copied);
    EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 32), panel.Row("ReadDataLBL", 1, 32));
    panel.Click("ClearReadCMD");
    EXPECT_FALSE(panel.Find("CopyReadingCMD").isEnabled());
}

TEST_F(BlockPanelControls, ColumnsAreAlignedAndNothingIsCut) {
    for (int column = 1; column <= 32; ++column) {
        const QRect number = panel.Member("DataByteLBL", column).geometry();
        const QRect box = panel.Member("BlockWriteTXT", column).geometry();
        EXPECT_EQ(number.left(), box.left()) << column;
        EXPECT_EQ(number.width(), box.width()) << column;
        EXPECT_EQ(box.left(), panel.Member("BlockWriteTXT", (column - 1) % 16 + 1).x()) << column;
        EXPECT_GE(box.width(), panel.WriteBox(column).minimumSizeHint().width()) << column;
    }
    EXPECT_LE(panel.Panel.minimumSizeHint().width(), 1000) << "fits a window of 1024";
}

} // namespace
} // namespace tqx
