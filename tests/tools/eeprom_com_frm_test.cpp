#include "tools/tool_fixture.h"

#include <console/high_byte_combo.h>
#include <console/random_fill.h>
#include <controls/number_entry.h>
#include <tools/eeprom_com_frm.h>

#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTimer>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char* const protectedMessage =
    "A problem was detected|Can not write to the TQX7716 EEPROM, the write protect bit is set.|1";

class EEPROMComTest : public test::ToolFixture {
protected:
    EEPROMComFRM window{bench, door, waiter, "Register Access 1"};

    void SetUp() override { window.show(); }

    void Set(const char* entry, int row, const QString& text) {
        Find<NumberEntry>(window, Member(entry, row)).Text(text);
    }

    std::string TextOf(const char* entry, int row) {
        return Find<NumberEntry>(window, Member(entry, row)).Text().toStdString();
    }

    std::string Shown(int row) {
        return Find<QLabel>(window, Member("ReadLBL", row)).text().toStdString();
    }

    QTimer& AutoRead() { return Find<QTimer>(window, "AutoReadTimer"); }

    bool Enabled(const QString& name) { return ToolFixture::Enabled(window, name); }

    void Click(const QString& name) { ToolFixture::Click(window, name); }
};

TEST_F(EEPROMComTest, StandsAsStoredAndTouchesNoBus) {
    EXPECT_EQ(TextOf("AddrptrTXT", 10), "A");
    EXPECT_EQ(TextOf("WriteDataTXT", 15), "0");
    EXPECT_EQ(Shown(0), "00");
    auto& blocks = Find<HighByteCombo>(window, "EEPROMHighByteCOMBO");
    EXPECT_EQ(blocks.count(), 32);
    EXPECT_EQ(blocks.itemText(31), "9F");
    EXPECT_EQ(blocks.currentText(), "80");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(EEPROMComTest, RowsReadAndWriteRegisters) {
    link.Registers[0x2C] = 0x0A;
    Set("AddrptrTXT", 3, "2C");
    Set("WriteDataTXT", 3, "7f");
    Click("ReadByteCMD(3)");
    EXPECT_EQ(Shown(3), "A");
    Click("WriteByteCMD(3)");
    EXPECT_THAT(link.Take(), ElementsAre("BoardBus.ReadByte 58 2C", "BoardBus.WriteByte 58 2C 7F"));
    EXPECT_TRUE(Enabled("CloseCMD"));
}

TEST_F(EEPROMComTest, ARowOfTheEEPROMSelectsItsModeFirst) {
    link.Registers[0x13] = 0xF2;
    Click("AccessEEPROMCHK");
    Find<HighByteCombo>(window, "EEPROMHighByteCOMBO").setCurrentText("9A");
    Set("AddrptrTXT", 0, "40");
    Click("ReadByteCMD(0)");
    Click("WriteByteCMD(0)");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 F1", "EEPROMLink.ReadEEPROM 9A 40",
                            "BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 F2", "EEPROMLink.WriteEEPROM 9A 40 0"));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(EEPROMComTest, WriteProtectionWarnsAndStopsNothing) {
    link.Registers[0x13] = 0x08;
    Click("AccessEEPROMCHK");
    // A tick behind the message moves the shared record of the transfer.
    duringMessage = [this] {
        bench.Bus.BusCell.RegisterPointer = 0x20;
        bench.Bus.BusCell.ReadValue = 0xFF;
    };
    Click("WriteByteCMD(5)");
    EXPECT_THAT(messages, ElementsAre(protectedMessage));
    EXPECT_EQ(link.Registers[0x13], 0x0A);
    EXPECT_EQ(link.Calls.back(), "EEPROMLink.WriteEEPROM 80 5 0");
}

TEST_F(EEPROMComTest, ReadAllReadsSixteenRowsAndLeavesTheWindowUsable) {
    for (std::size_t i = 0; i < 16; ++i) {
        link.Registers[i] = static_cast<std::uint8_t>(0xA0 + i);
    }
    auto& progress = Find<QProgressBar>(window, "RWAllProgress");
    const QSignalSpy steps(&progress, &QProgressBar::valueChanged);
    Click("ReadAllCMD");
    EXPECT_EQ(link.Take().size(), 16U);
    EXPECT_EQ(Shown(15), "AF");
    EXPECT_EQ(steps.count(), 16) << "1 to 15 and back to 0";
    EXPECT_EQ(progress.value(), 0);
    Click("ReadDataFillCMD");
    EXPECT_EQ(TextOf("WriteDataTXT", 15), "AF");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(EEPROMComTest, WriteAllToRegistersPausesAheadOfEachByte) {
    int progress = -1;
    bool usable = true;
    duringWait = [&] {
        progress = Find<QProgressBar>(window, "RWAllProgress").value();
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
        usable =
            usable && (Enabled("WriteALLCMD") || Enabled("ReadByteCMD(0)") || Enabled("CloseCMD") ||
                       Enabled("RandomFillCMD") || Enabled("AccessEEPROMCHK"));
    };
    Click("AutoReadCHK");
    Click("WriteALLCMD");
    const std::vector<std::string> calls = link.Take();
    ASSERT_EQ(calls.size(), 32U);
    EXPECT_EQ(calls[0], "Wait 10");
    EXPECT_EQ(calls[31], "BoardBus.WriteByte 58 F 0");
    EXPECT_EQ(progress, 14);
    EXPECT_FALSE(usable);
    EXPECT_TRUE(AutoRead().isActive());
    EXPECT_TRUE(Enabled("WriteALLCMD"));
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(EEPROMComTest, TheEndOfAnEraseClearsTheFourLowBits) {
    link.Registers[0x13] = 0xFF;
    Click("AccessEEPROMCHK");
    window.EraseHighByte();
    EXPECT_EQ(link.Registers[0x13], 0xF0);
    EXPECT_THAT(messages, ElementsAre(protectedMessage, protectedMessage));
}

TEST_F(EEPROMComTest, WriteAllToTheEEPROMErasesTheBlockAndRestsAutoRead) {
    Click("AccessEEPROMCHK");
    Click("EraseEEPROMCHK");
    Click("AutoReadCHK");
    ASSERT_TRUE(AutoRead().isActive());
    link.Take();
    bool resting = true;
    duringWait = [&] { resting = resting && !AutoRead().isActive(); };
    Click("WriteALLCMD");
    std::vector<std::string> calls = link.Take();
    const std::vector<std::string> erase(calls.begin(), calls.begin() + 15);
    EXPECT_THAT(erase,
                ElementsAre("BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 4", "Wait 100", "EEPROMLink.ErasePage 80 0 0",
                            "Wait 100", "EEPROMLink.ErasePage 80 40 0", "Wait 100",
                            "EEPROMLink.ErasePage 80 80 0", "Wait 100",
                            "EEPROMLink.ErasePage 80 C0 0", "Wait 100", "BoardBus.ReadByte 58 13",
                            "BoardBus.PortAddress 378", "BoardBus.WriteByte 58 13 0"));
    calls.erase(calls.begin(), calls.begin() + 15);
    ASSERT_EQ(calls.size(), 3U + 32U + 3U);
    EXPECT_EQ(calls[2], "BoardBus.WriteByte 58 13 2");
    EXPECT_EQ(calls[3], "EEPROMLink.WriteEEPROM 80 0 0");
    EXPECT_EQ(calls[4], "Wait 100");
    EXPECT_EQ(calls.back(), "BoardBus.WriteByte 58 13 1");
    EXPECT_TRUE(resting);
    EXPECT_TRUE(AutoRead().isActive());
}

TEST_F(EEPROMComTest, CheckBoxesEnableWhatTheTableSays) {
    struct Step {
        const char* Click;
        bool HighByte;
        bool EraseBox;
        bool WriteButtons;
    };

    const Step steps[] = {
        {nullptr, false, false, true},          {"AccessEEPROMCHK", true, true, true},
        {"EraseEEPROMCHK", true, true, false},  {"EraseEEPROMCHK", false, true, true},
        {"EraseEEPROMCHK", true, true, false},  {"AccessEEPROMCHK", false, false, false},
        {"AccessEEPROMCHK", true, true, false},
    };
    int number = 0;
    for (const Step& step : steps) {
        SCOPED_TRACE(++number);
        if (step.Click != nullptr) {
            Click(step.Click);
        }
        EXPECT_EQ(Enabled("EEPROMHighByteCOMBO"), step.HighByte);
        EXPECT_EQ(Enabled("EraseEEPROMCHK"), step.EraseBox);
        EXPECT_EQ(Enabled("WriteByteCMD(0)"), step.WriteButtons);
        EXPECT_EQ(Enabled("WriteByteCMD(15)"), step.WriteButtons);
    }
}

TEST_F(EEPROMComTest, OnTheSMBusThereIsNoEEPROM) {
    bench.Bus.BusCell = {.SlaveAddress = 0x2C, .ComsMedium = 0};
    link.ActiveMedium(1);
    link.SlaveAddress(0x2C);
    link.Take();
    EEPROMComFRM other(bench, door, waiter, "Register Spy 2");
    EXPECT_FALSE(ToolFixture::Enabled(other, "AccessEEPROMCHK"));
    other.show();
    ToolFixture::Click(other, "ReadByteCMD(1)");
    EXPECT_THAT(link.Take(), ElementsAre("SMBusLink.ReadByte 2C 1"));
}

TEST_F(EEPROMComTest, AddressFillCountsOnFromTheFirstRow) {
    Set("AddrptrTXT", 0, "F8");
    Click("ADDPTRFillCMD");
    EXPECT_EQ(TextOf("AddrptrTXT", 7), "FF");
    EXPECT_EQ(TextOf("AddrptrTXT", 15), "107");
    Set("AddrptrTXT", 0, "1234");
    Click("ADDPTRFillCMD");
    EXPECT_EQ(TextOf("AddrptrTXT", 0), "FF");
    EXPECT_EQ(TextOf("AddrptrTXT", 1), "100");
}

TEST_F(EEPROMComTest, RandomFillRepeatsFromRunToRun) {
    Click("RandomFillCMD");
    EEPROMComFRM other(bench, door, waiter, "Register Spy 2");
    other.show();
    ToolFixture::Click(other, "RandomFillCMD");
    UnseededRandom random;
    for (int i = 0; i < 16; ++i) {
        const auto& entry = Find<NumberEntry>(other, Member("WriteDataTXT", i));
        EXPECT_EQ(entry.Text().toStdString(), TextOf("WriteDataTXT", i));
        EXPECT_EQ(entry.Value(), random.NextByte());
    }
}

TEST_F(EEPROMComTest, ARowThatIsNoByteIsMarkedAndSendsNothing) {
    Click("AccessEEPROMCHK");
    Set("AddrptrTXT", 2, "107");
    Set("WriteDataTXT", 4, "");
    EXPECT_EQ(Find<QLabel>(window, "AddressMark(2)").text(), "!");
    EXPECT_EQ(Find<QLabel>(window, "DataMark(4)").text(), "!");
    EXPECT_TRUE(Find<NumberEntry>(window, "AddrptrTXT(2)").toolTip().contains("\"107\""));
    Click("ReadByteCMD(2)");
    Click("WriteByteCMD(2)");
    Click("WriteByteCMD(4)");
    EXPECT_THAT(link.Take(), IsEmpty());
    EXPECT_EQ(Shown(2), "---");

    Click("WriteALLCMD");
    const auto written = Only(link.Take(), "EEPROMLink.WriteEEPROM");
    EXPECT_EQ(written.size(), 14U);
    EXPECT_THAT(written, testing::Not(testing::Contains("EEPROMLink.WriteEEPROM 80 4 0")));

    Set("AddrptrTXT", 2, "7");
    EXPECT_EQ(Find<QLabel>(window, "AddressMark(2)").text(), "");
}

TEST_F(EEPROMComTest, NothingIsErasedForRowsOfWhichNoneCanBeWritten) {
    for (int i = 0; i < 16; ++i) {
        Set("WriteDataTXT", i, "---");
    }
    Click("AccessEEPROMCHK");
    Click("EraseEEPROMCHK");
    Click("WriteALLCMD");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(EEPROMComTest, AutoReadReadsEveryHundredMilliseconds) {
    EXPECT_EQ(AutoRead().interval(), 100);
    Click("AutoReadCHK");
    EXPECT_EQ(Find<QAbstractButton>(window, "AutoReadCHK").text(), "AutoRead is On");
    ASSERT_TRUE(AutoRead().isActive());
    AutoRead().setInterval(1);
    QTRY_VERIFY_WITH_TIMEOUT(link.Calls.size() >= 16, 2000);
    Click("AutoReadCHK");
    EXPECT_FALSE(AutoRead().isActive());
    EXPECT_EQ(Find<QAbstractButton>(window, "AutoReadCHK").text(), "AutoRead is Off");
}

TEST_F(EEPROMComTest, AFailedLinkCallPassesOnAndLeavesTheWindowUsable) {
    Click("AccessEEPROMCHK");
    Click("AutoReadCHK");
    link.FailOn = "EEPROMLink.WriteEEPROM";
    link.FailAfter = 3;
    EXPECT_THROW(Find<QAbstractButton>(window, "WriteALLCMD").click(), LinkError);
    EXPECT_TRUE(Enabled("WriteALLCMD"));
    EXPECT_TRUE(Enabled("CloseCMD"));
    EXPECT_EQ(Find<QProgressBar>(window, "RWAllProgress").value(), 0);
    EXPECT_FALSE(AutoRead().isActive());
    EXPECT_EQ(Find<QAbstractButton>(window, "AutoReadCHK").text(), "AutoRead is Off");

    link.FailOn = "BoardBus.ReadByte";
    EXPECT_THROW(Find<QAbstractButton>(window, "AutoReadCHK").click(), LinkError);
    EXPECT_EQ(Find<QAbstractButton>(window, "AutoReadCHK").text(), "AutoRead is Off");
}

TEST_F(EEPROMComTest, AFailedTickOfAutoReadIsTheLast) {
    Click("AutoReadCHK");
    link.FailOn = "BoardBus.ReadByte";
    QTimerEvent tick(AutoRead().timerId());
    EXPECT_THROW(QCoreApplication::sendEvent(&AutoRead(), &tick), LinkError);
    EXPECT_FALSE(AutoRead().isActive());
    const auto& box = Find<QAbstractButton>(window, "AutoReadCHK");
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(box.text(), "AutoRead is Off");
}

TEST_F(EEPROMComTest, ACloseEndsWriteAllAtTheNextPause) {
    QSignalSpy unloaded(&window, &ToolWindow::Unloaded);
    Click("AccessEEPROMCHK");
    Click("EraseEEPROMCHK");
    Click("AutoReadCHK");
    link.Take();
    int pauses = 0;
    duringWait = [&] {
        if (++pauses == 3) {
            window.close();
            EXPECT_EQ(unloaded.count(), 0);
        }
    };
    Click("WriteALLCMD");
    const std::vector<std::string> calls = link.Take();
    EXPECT_EQ(Only(calls, "EEPROMLink.ErasePage").size(), 2U);
    EXPECT_THAT(Only(calls, "EEPROMLink.WriteEEPROM"), IsEmpty());
    EXPECT_EQ(calls.back(), "Wait 100");
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(AutoRead().isActive());
}

TEST_F(EEPROMComTest, TheFocusComesBackAfterABusyTime) {
    window.activateWindow();
    auto& write = Find<QAbstractButton>(window, "WriteByteCMD(6)");
    write.setFocus();
    write.click();
    EXPECT_EQ(window.focusWidget(), &write);
}

} // namespace
} // namespace tqx
