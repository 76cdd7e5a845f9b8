#include "support/dump_sample.h"
#include "support/recorded_bench.h"
#include "support/temporary_folder.h"

#include <jobs/register_dump.h>

#include <filesystem>
#include <gtest/gtest.h>

namespace tqx {
namespace {

/// Dumps of a recorded chip whose bytes follow a rule.
class RegisterDumpTest : public testing::Test, protected DumpDoor {
protected:
    test::RecordedBench recorded;
    tqx::Bench& bench = recorded.Bench;
    test::RecordingLink& link = recorded.Link;
    test::TemporaryFolder folder;
    std::string place = folder.Path("dump.txt");
    int rows = 0;
    int served = 0;
    int stopAfterRows = -1;
    int removeAfterRows = -1;
    int stamps = 0;

    void SetUp() override {
        link.SlaveAddress(0x58);
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

    void RowWritten() override {
        if (++rows == removeAfterRows) {
            std::filesystem::remove(place);
        }
    }

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

    std::string Written() const { return test::ContentOf(place); }
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
    place = folder.Path("not there/dump.txt");
    const DumpOutcome outcome = Dump({});
    EXPECT_TRUE(outcome.Finished);
    EXPECT_FALSE(outcome.ReachedDisk);
    EXPECT_EQ(outcome.FileFailure, "No such file or directory");
    EXPECT_EQ(rows, 1056);
}

TEST_F(RegisterDumpTest, AFileThatVanishesMeanwhileIsTold) {
    removeAfterRows = 5;
    const DumpOutcome outcome = Dump({});
    EXPECT_FALSE(outcome.ReachedDisk);
    EXPECT_EQ(outcome.FileFailure, "it was removed or moved away meanwhile");
}

TEST_F(RegisterDumpTest, AFailedReadStandsAsFFAndIsCounted) {
    link.FailOn = "BoardBus.ReadByte 58 1";
    link.FailAfter = 1; // 1, then 10 to 1F
    const DumpOutcome outcome = Dump({.RAM = true, .EEPROM = false});
    EXPECT_TRUE(outcome.Finished);
    EXPECT_EQ(outcome.FailedReads, 16);
    EXPECT_TRUE(outcome.LinkFailure.find("the link failed") != std::string::npos);
    EXPECT_EQ(Written(), test::ExpectedRAMBlock("T1", "D1", [](int address) {
                  return address >= 0x10 && address <= 0x1F ? std::uint8_t{0xFF} : RAMByte(address);
              }));
    EXPECT_EQ(link.Calls.back(), "PrinterPortLink.BurstMode 0");
}

} // namespace
} // namespace tqx
