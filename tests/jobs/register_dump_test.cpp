#include "support/dump_sample.h"
#include "tools/tool_fixture.h"

#include <jobs/register_dump.h>

#include <QFile>
#include <QTemporaryDir>

namespace tqx {
namespace {

/// Dumps of a recorded chip whose bytes follow a rule.
class RegisterDumpTest : public test::ToolFixture, protected DumpDoor {
protected:
    QTemporaryDir folder;
    QString place = folder.filePath("dump.txt");
    int rows = 0;
    int served = 0;
    int stopAfterRows = -1;
    int stamps = 0;

    void SetUp() override {
        for (int i = 0; i < 256; ++i) {
            link.Registers[static_cast<std::size_t>(i)] = RAMByte(i);
        }
        for (int i = 0; i < 8192; ++i) {
            link.EEPROM[{static_cast<std::uint8_t>(0x80 + i / 256),
                         static_cast<std::uint8_t>(i % 256)}] = ROMByte(0x80 + i / 256, i % 256);
        }
    }

    static std::uint8_t RAMByte(int address) { return static_cast<std::uint8_t>(address * 37 + 5); }

    static std::uint8_t ROMByte(int high, int low) {
        return static_cast<std::uint8_t>(high * 11 + low * 3);
    }

    void RowWritten() override { ++rows; }

    void ServeEvents() override { ++served; }

    bool StopRequested() override { return rows == stopAfterRows; }

    DumpOutcome Dump(DumpChoice choice) {
        rows = 0;
        RegisterDump dump(bench.Link, *this);
        dump.Clock = [this] {
            ++stamps;
            return DumpStamp{"T" + std::to_string(stamps), "D" + std::to_string(stamps)};
        };
        return dump.Run(choice, place);
    }

    std::string Written() const {
        QFile file(place);
        file.open(QIODevice::ReadOnly);
        return file.readAll().toStdString();
    }
};

TEST_F(RegisterDumpTest, TwoDumpsStandOneBehindTheOtherWithTheirOwnTimes) {
    EXPECT_TRUE(Dump({}).Finished);
    EXPECT_EQ(rows, 1056);
    EXPECT_EQ(served, 64);
    const std::string first = test::ExpectedRAMBlock("T1", "D1", RAMByte) +
                              test::ExpectedEEPROMBlock("T2", "D2", ROMByte);
    ASSERT_EQ(Written(), first);
    Dump({});
    EXPECT_EQ(Written(), first + test::ExpectedRAMBlock("T3", "D3", RAMByte) +
                             test::ExpectedEEPROMBlock("T4", "D4", ROMByte));
}

TEST_F(RegisterDumpTest, AStopEndsTheFileInPlaceOfTheNextRow) {
    stopAfterRows = 3;
    EXPECT_FALSE(Dump({}).Finished);
    const std::string inRAM =
        test::ExpectedRAMBlock("T1", "D1", RAMByte, 3) + test::ExpectedStop("T2", "D2");
    EXPECT_EQ(Written(), inRAM);
    stopAfterRows = 32 + 40;
    EXPECT_FALSE(Dump({}).Finished);
    EXPECT_EQ(Written(), inRAM + test::ExpectedRAMBlock("T3", "D3", RAMByte) +
                             test::ExpectedEEPROMBlock("T4", "D4", ROMByte, 40) +
                             test::ExpectedStop("T5", "D5"));
}

TEST_F(RegisterDumpTest, ReadsTheBoardOfThatMomentInOneBurst) {
    bench.Bus.BusCell.ComsMedium = 0;
    link.ActiveMedium(1);
    link.SlaveAddress(0x5A);
    link.Take();
    Dump({.RAM = true, .EEPROM = true});
    const std::vector<std::string> calls = link.Take();
    ASSERT_EQ(calls.size(), 8448U + 2U);
    EXPECT_EQ(calls.front(), "PrinterPortLink.BurstMode 1");
    EXPECT_EQ(calls[1], "BoardBus.ReadByte 5A 0");
    EXPECT_EQ(calls[256], "BoardBus.ReadByte 5A FF");
    EXPECT_EQ(calls[257], "EEPROMLink.ReadEEPROM 80 0");
    EXPECT_EQ(calls[8448], "EEPROMLink.ReadEEPROM 9F FF");
    EXPECT_EQ(calls.back(), "PrinterPortLink.BurstMode 0");
}

TEST_F(RegisterDumpTest, AFileThatCannotBeWrittenStopsNothing) {
    const QString fullDisk = folder.filePath("full.txt");
    ASSERT_TRUE(QFile::link("/dev/full", fullDisk));
    for (const QString& file : {folder.filePath("not there/dump.txt"), fullDisk}) {
        place = file;
        const DumpOutcome outcome = Dump({});
        EXPECT_TRUE(outcome.Finished);
        EXPECT_FALSE(outcome.ReachedDisk);
        EXPECT_FALSE(outcome.FileFailure.isEmpty());
        EXPECT_EQ(rows, 1056);
    }
}

TEST_F(RegisterDumpTest, AFailedReadStandsAsFFAndIsCounted) {
    link.FailOn = "BoardBus.ReadByte 58 1";
    link.FailAfter = 1; // 1, then 10 to 1F
    const DumpOutcome outcome = Dump({.RAM = true, .EEPROM = false});
    EXPECT_TRUE(outcome.Finished);
    EXPECT_EQ(outcome.FailedReads, 16);
    EXPECT_TRUE(outcome.LinkFailure.contains("the link failed"));
    EXPECT_EQ(Written(), test::ExpectedRAMBlock("T1", "D1", [](int address) {
                  return address >= 0x10 && address <= 0x1F ? std::uint8_t{0xFF} : RAMByte(address);
              }));
    EXPECT_EQ(link.Calls.back(), "PrinterPortLink.BurstMode 0");
}

} // namespace
} // namespace tqx
