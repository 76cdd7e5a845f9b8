// The tool windows on the simulated board: what one of them does is what the others see.

#include "blocks/block_panel.h"
#include "eeprom_com/eeprom_com_frm.h"
#include "register_dump/register_dump_frm.h"
#include "support/answered_dialogs.h"
#include "support/hands.h"

#include <controls/number_entry.h>
#include <device/bench.h>
#include <simulated/simulated_board.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace tqx {
namespace {

class BoardWindowsTest : public testing::Test, protected test::Hands {
protected:
    sim::SimulatedBoard board{{.Now = [] { return std::chrono::seconds(1); }}};
    Bench bench{board.Factory()};
    int warnings = 0;
    MessageDoor door = [this](auto&&...) {
        ++warnings;
        return std::uint8_t{1};
    };
    EEPROMComFRM com{Chosen(), door, [](float) {}, "Register Access 1"};
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

    static int Number(QWidget& window, const QString& label) {
        return Find<QLabel>(window, label).text().toInt(nullptr, 16);
    }

    static void Block(QWidget& window, const QString& high) {
        Find<QComboBox>(window, "EEPROMHighByteCOMBO").setCurrentText(high);
    }

    /// Makes row i stand for address `first` + i and the byte `value` of i.
    void FillRows(unsigned first, const std::function<unsigned(unsigned)>& value) {
        for (int i = 0; i < 16; ++i) {
            const auto row = static_cast<unsigned>(i);
            Find<NumberEntry>(com, Member("AddrptrTXT", i)).Value(first + row);
            Find<NumberEntry>(com, Member("WriteDataTXT", i)).Value(value(row));
        }
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
    Find<NumberEntry>(blocks, "LowByteTXT").Value(0x40);
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

} // namespace
} // namespace tqx
