#include "eeprom_com/eeprom_com_frm.h"
#include "tools/tool_fixture.h"

#include <console/high_byte_combo.h>
#include <console/random_fill.h>
#include <controls/number_entry.h>

#include <QAbstractButton>
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

    QWidget& Window() override { return window; }

    NumberEntry& Address(int row) { return Find<NumberEntry>("AddrptrTXT", row); }

    NumberEntry& Data(int row) { return Find<NumberEntry>("WriteDataTXT", row); }

    std::string Shown(int row) { return Find<QLabel>("ReadLBL", row).text().toStdString(); }

    QTimer& AutoRead() { return Find<QTimer>("AutoReadTimer"); }

    QAbstractButton& AutoReadBox() { return Find<QAbstractButton>("AutoReadCHK"); }

    void ExpectAutoReadOff() {
        EXPECT_FALSE(AutoRead().isActive());
        EXPECT_FALSE(AutoReadBox().isChecked());
        EXPECT_EQ(AutoReadBox().text(), "AutoRead is Off");
    }

    int Progress() { return Find<QProgressBar>("RWAllProgress").value(); }
};

TEST_F(EEPROMComTest, RowsReadAndWriteRegisters) {
    link.Registers[0x2C] = 0x0A;
    Address(3).Put("2C");
    Data(3).Put("7f");
    Click("ReadByteCMD(3)");
    EXPECT_EQ(Shown(3), "A");
    Click("WriteByteCMD(3)");
    EXPECT_THAT(link.Take(), ElementsAre("BoardBus.ReadByte 58 2C", "BoardBus.WriteByte 58 2C 7F"));
    EXPECT_TRUE(Enabled("CloseCMD"));
}

TEST_F(EEPROMComTest, TheEEPROMsModeIsSelectedFirst) {
    link.Registers[0x13] = 0xF2;
    Click("AccessEEPROMCHK");
    Find<HighByteCombo>("EEPROMHighByteCOMBO").setCurrentText("9A");
    Address(0).Put("40");
    Click("ReadByteCMD(0)");
    Click("WriteByteCMD(0)");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 F1", "EEPROMLink.ReadEEPROM 9A 40",
                            "BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 F2", "EEPROMLink.WriteEEPROM 9A 40 0"));
    EXPECT_THAT(messages, IsEmpty());

    Click("ReadAllCMD");
    const std::vector<std::string> calls = link.Take();
    ASSERT_EQ(calls.size(), 3U + 16U);
    EXPECT_EQ(calls[2], "BoardBus.WriteByte 58 13 F1");
    EXPECT_EQ(calls[18], "EEPROMLink.ReadEEPROM 9A F");
}

TEST_F(EEPROMComTest, ReadAllReadsSixteenRowsAndLeavesTheWindowUsable) {
    for (std::size_t i = 0; i < 16; ++i) {
        link.Registers[i] = static_cast<std::uint8_t>(0xA0 + i);
    }
    const QSignalSpy steps(&Find<QProgressBar>("RWAllProgress"), &QProgressBar::valueChanged);
    Click("ReadAllCMD");
    EXPECT_EQ(link.Take().size(), 16U);
    EXPECT_EQ(Shown(15), "AF");
    EXPECT_EQ(steps.count(), 16) << "1 to 15 and back to 0";
    EXPECT_EQ(Progress(), 0);
    Click("ReadDataFillCMD");
    EXPECT_EQ(Data(15).text(), "AF");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(EEPROMComTest, WriteAllToRegistersPausesAheadOfEachByte) {
    int progress = -1;
    duringWait = [&] {
        progress = Progress();
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
        for (const char* name :
             {"WriteALLCMD", "ReadByteCMD(0)", "CloseCMD", "RandomFillCMD", "AccessEEPROMCHK"}) {
            EXPECT_FALSE(Enabled(name)) << name;
        }
    };
    Click("AutoReadCHK");
    Click("WriteALLCMD");
    const std::vector<std::string> calls = link.Take();
    ASSERT_EQ(calls.size(), 32U);
    EXPECT_EQ(calls[0], "Wait 10");
    EXPECT_EQ(calls[31], "BoardBus.WriteByte 58 F 0");
    EXPECT_EQ(progress, 14);
    EXPECT_TRUE(AutoRead().isActive());
    EXPECT_TRUE(Enabled("WriteALLCMD"));
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(EEPROMComTest, WriteAllToTheEEPROMErasesTheBlockAndRestsAutoRead) {
    link.Registers[0x13] = 0xFA;
    for (const char* box : {"AccessEEPROMCHK", "EraseEEPROMCHK", "AutoReadCHK"}) {
        Click(box);
    }
    ASSERT_TRUE(AutoRead().isActive());
    link.Take();
    duringWait = [&] { EXPECT_FALSE(AutoRead().isActive()); };
    Click("WriteALLCMD");
    const auto mode = [](const char* written) {
        return std::vector<std::string>{"BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                                        std::string("BoardBus.WriteByte 58 13 ") + written};
    };
    std::vector<std::string> expected = mode("FC");
    const auto add = [&expected](const std::vector<std::string>& calls) {
        expected.insert(expected.end(), calls.begin(), calls.end());
    };
    for (const char* page : {"0", "40", "80", "C0"}) {
        add({"Wait 100", std::string("EEPROMLink.ErasePage 80 ") + page + " 0"});
    }
    add({"Wait 100"});
    add(mode("F0")); // without the write protect bit
    add(mode("F2"));
    for (const char row : std::string_view("0123456789ABCDEF")) {
        add({std::string("EEPROMLink.WriteEEPROM 80 ") + row + " 0", "Wait 100"});
    }
    add(mode("F1"));
    EXPECT_EQ(link.Take(), expected);
    EXPECT_THAT(messages, ElementsAre(protectedMessage, protectedMessage));
    EXPECT_TRUE(AutoRead().isActive());
}

TEST_F(EEPROMComTest, FillsCountOnFromTheFirstRowAndFollowTheRandomSequence) {
    Address(0).Put("F8");
    Click("ADDPTRFillCMD");
    EXPECT_EQ(Address(7).text(), "FF");
    EXPECT_EQ(Address(15).text(), "107");
    Address(0).Put("1234");
    Click("ADDPTRFillCMD");
    EXPECT_EQ(Address(0).text(), "FF");
    EXPECT_EQ(Address(1).text(), "100");

    Click("RandomFillCMD");
    UnseededRandom random;
    for (int row = 0; row < 16; ++row) {
        EXPECT_EQ(Data(row).Value(), random.NextByte());
    }
}

TEST_F(EEPROMComTest, ARowThatIsNoByteIsMarkedAndSendsNothing) {
    Click("AccessEEPROMCHK");
    Address(2).Put("107");
    Data(4).Put("");
    EXPECT_EQ(Text("AddressMark(2)") + Text("DataMark(4)"), "!!");
    EXPECT_TRUE(Address(2).toolTip().contains("\"107\""));
    Click("ReadByteCMD(2)");
    Click("WriteByteCMD(2)");
    Click("WriteByteCMD(4)");
    EXPECT_THAT(link.Take(), IsEmpty());
    EXPECT_EQ(Shown(2), "---");

    Click("WriteALLCMD");
    const auto written = Only(link.Take(), "EEPROMLink.WriteEEPROM");
    EXPECT_EQ(written.size(), 14U);
    EXPECT_THAT(written, testing::Not(testing::Contains("EEPROMLink.WriteEEPROM 80 4 0")));

    Address(2).Put("7");
    EXPECT_EQ(Text("AddressMark(2)"), "");
}

TEST_F(EEPROMComTest, AutoReadReadsEveryHundredMilliseconds) {
    EXPECT_EQ(AutoRead().interval(), 100);
    Click("AutoReadCHK");
    EXPECT_EQ(AutoReadBox().text(), "AutoRead is On");
    ASSERT_TRUE(AutoRead().isActive());
    AutoRead().setInterval(1);
    QTRY_VERIFY_WITH_TIMEOUT(link.Calls.size() >= 16, 2000);
    Click("AutoReadCHK");
    ExpectAutoReadOff();
}

TEST_F(EEPROMComTest, AFailedLinkCallPassesOnAndLeavesTheWindowUsable) {
    Click("AccessEEPROMCHK");
    Click("AutoReadCHK");
    link.FailOn = "EEPROMLink.WriteEEPROM";
    link.FailAfter = 3;
    ClickFails("WriteALLCMD");
    EXPECT_TRUE(Enabled("WriteALLCMD"));
    EXPECT_TRUE(Enabled("CloseCMD"));
    EXPECT_EQ(Progress(), 0);
    ExpectAutoReadOff();
    link.FailOn = "BoardBus.ReadByte";
    ClickFails("AutoReadCHK");
    ExpectAutoReadOff();
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

} // namespace
} // namespace tqx
