// The tool windows on the simulated board: what one of them does is what the others see.

#include "support/answered_dialogs.h"
#include "tools/dump_sample.h"

#include <console/block_panel.h>
#include <controls/number_entry.h>
#include <device/bench.h>
#include <simulated/simulated_board.h>
#include <tools/eeprom_com_frm.h>
#include <tools/erase_eeprom_frm.h>
#include <tools/gpio_config_frm.h>
#include <tools/register_dump_frm.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace tqx {
namespace {

class BoardWindowsTest : public testing::Test {
protected:
    SimulatedBoard board{{.Now = [] { return std::chrono::seconds(1); }}};
    Bench bench{board.Factory()};
    int warnings = 0;
    MessageDoor door = [this](auto&&...) {
        ++warnings;
        return std::uint8_t{1};
    };
    std::function<void()> duringWait = [] {};
    Waiter waiter = [this](float) { duringWait(); };
    EEPROMComFRM com{Chosen(), door, waiter, "Register Access 1"};
    QTemporaryDir folder;

    void SetUp() override { Click(com, "AccessEEPROMCHK"); }

    /// The bench with the board's chip chosen.
    Bench& Chosen() {
        bench.Bus.BusCell = {.SlaveAddress = 0x58, .PortAddress = 0x378, .ComsMedium = 1};
        bench.Link->ActiveMedium(ActivePrinterPort);
        BoardBus& bus = bench.Link->PrinterPortLink().BoardBus();
        bus.SlaveAddress(0x58);
        bus.BoardMode(false);
        return bench;
    }

    static void Click(QWidget& window, const QString& button) {
        window.findChild<QAbstractButton*>(button)->click();
    }

    static QString Member(const char* name, int index) {
        return QStringLiteral("%1(%2)").arg(name).arg(index);
    }

    static int Number(QWidget& window, const QString& label) {
        return window.findChild<QLabel*>(label)->text().toInt(nullptr, 16);
    }

    static void Block(QWidget& window, const QString& high) {
        window.findChild<QComboBox*>("EEPROMHighByteCOMBO")->setCurrentText(high);
    }

    /// Makes row i stand for address `first` + i and the byte `value` of i.
    void FillRows(unsigned first, const std::function<unsigned(unsigned)>& value) {
        for (unsigned i = 0; i < 16; ++i) {
            com.findChild<NumberEntry*>(Member("AddrptrTXT", static_cast<int>(i)))
                ->Value(first + i);
            com.findChild<NumberEntry*>(Member("WriteDataTXT", static_cast<int>(i)))
                ->Value(value(i));
        }
    }

    std::uint8_t ROM(int high, int low) {
        return board.TheChip().ReadEEPROM(static_cast<std::uint16_t>((high - 0x80) * 256 + low));
    }

    std::string Dump() {
        test::AnsweredDialogs dialogs;
        RegisterDumpFRM dump(bench, door, dialogs);
        dump.Clock = [] { return DumpStamp{"T", "D"}; };
        dialogs.FileName = folder.filePath("dump.txt");
        QFile::remove(dialogs.FileName);
        Click(dump, "BrowseCMD");
        Click(dump, "DumpCMD");
        QFile file(dialogs.FileName);
        file.open(QIODevice::ReadOnly);
        return file.readAll().toStdString();
    }
};

TEST_F(BoardWindowsTest, WhatTheRowsWroteReadsBackEverywhere) {
    Block(com, "9A");
    FillRows(0x40, [](unsigned i) { return 0xF0 - 7 * i; });
    Click(com, "WriteALLCMD");
    Click(com, "ReadAllCMD");
    BlockPanel blocks(bench, door);
    blocks.Load();
    Click(blocks, "AccessEEPROMCHK");
    Block(blocks, "9A");
    blocks.findChild<NumberEntry*>("LowByteTXT")->Value(0x40);
    Click(blocks, "BlockReadCMD");
    const std::string dump = Dump();
    for (int i = 0; i < 16; ++i) {
        const int written = 0xF0 - 7 * i;
        EXPECT_EQ(Number(com, Member("ReadLBL", i)), written);
        EXPECT_EQ(Number(blocks, Member("ReadDataLBL", i + 1)), written);
        char item[16];
        std::snprintf(item, sizeof item, "9A,%X:%X", 0x40 + i, written);
        EXPECT_NE(dump.find(item), std::string::npos) << item;
    }
    EXPECT_EQ(warnings, 0);
}

TEST_F(BoardWindowsTest, TheDumpIsTheChipByteForByte) {
    FillRows(0, [](unsigned i) { return i * 3; });
    Click(com, "WriteALLCMD");
    // A1h is the command of a block read, which begins with the count.
    const auto ram = [this](int address) {
        return address == 0xA1 ? std::uint8_t{32}
                               : board.TheChip().Read(static_cast<std::uint8_t>(address));
    };
    const auto rom = [this](int high, int low) { return ROM(high, low); };
    EXPECT_TRUE(Dump() ==
                test::ExpectedRAMBlock("T", "D", ram) + test::ExpectedEEPROMBlock("T", "D", rom));
}

TEST_F(BoardWindowsTest, WritingWithoutErasingOnlyClearsBits) {
    Block(com, "81");
    FillRows(0x10, [](unsigned) { return 0xF0; });
    Click(com, "WriteALLCMD");
    FillRows(0x10, [](unsigned) { return 0x3C; });
    Click(com, "WriteALLCMD");
    Click(com, "ReadAllCMD");
    EXPECT_EQ(Number(com, "ReadLBL(0)"), 0x30);

    Click(com, "EraseEEPROMCHK");
    Click(com, "WriteALLCMD");
    Click(com, "ReadAllCMD");
    EXPECT_EQ(Number(com, "ReadLBL(15)"), 0x3C);
    EXPECT_EQ(ROM(0x81, 0x20), 0xFF);
}

TEST_F(BoardWindowsTest, WriteProtectionWarnsAndNothingChanges) {
    board.TheChip().Write(0x13, 0x08);
    Block(com, "82");
    Click(com, "WriteALLCMD");
    EXPECT_EQ(warnings, 1);
    EXPECT_EQ(ROM(0x82, 0), 0xFF);
}

TEST_F(BoardWindowsTest, EraseAllStoppedOnTheFirstPageLeavesTheRest) {
    FillRows(0x38, [](unsigned) { return 0; }); // eight bytes on either side of a page's end
    Click(com, "WriteALLCMD");
    EraseEEPROMFRM erase(bench, door, waiter);
    duringWait = [&erase] { Click(erase, "StopEraseCMD"); };
    Click(erase, "EraseAllCMD");
    EXPECT_EQ(ROM(0x80, 0x3F), 0xFF);
    EXPECT_EQ(ROM(0x80, 0x40), 0x00);

    duringWait = [] {};
    Click(erase, "EraseAllCMD");
    for (int address = 0; address < 8192; ++address) {
        ASSERT_EQ(board.TheChip().ReadEEPROM(static_cast<std::uint16_t>(address)), 0xFF) << address;
    }
}

TEST_F(BoardWindowsTest, TheGPIOPanelSetsLinesOfTheChip) {
    board.TheChip().Write(0x07, 0x81);
    GPIOConfigFRM panel(bench);
    panel.findChild<QComboBox*>("DirectionCombo(12)")->setCurrentText("Output");
    panel.findChild<QComboBox*>("Polarity(12)")->setCurrentText("High");
    EXPECT_EQ(board.TheChip().Read(0x0B) & 0x03, 0x03);
    EXPECT_EQ(board.TheChip().Read(0x07) & 0xC1, 0x81);
}

} // namespace
} // namespace tqx
