#include "console/block_panel_fixture.h"
#include "console/simulated_bench.h"

#include <device/register_addresses.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// From the panel's buttons down to the lines of the bus.
class BlockPanelOnTheBoard : public testing::Test {
protected:
    test::SimulatedBench simulated;
    BlockPanelUnderTest panel{simulated.Bench};
    std::vector<std::string> notices;

    void SetUp() override {
        simulated.Bench.Link.Setup.Notice = [this](std::string_view, std::string_view message) {
            notices.emplace_back(message);
        };
        panel.Click("UsePECCHK");
    }

    sim::Faults& TheFaults() { return simulated.Board.TheFaults(); }

    void StartInEEPROM(const char* high, const char* low) {
        panel.Click("AccessEEPROMCHK");
        panel.Find<QComboBox>("EEPROMHighByteCOMBO").setCurrentText(high);
        panel.Type("LowByteTXT", low);
    }

    void ErasePage(std::uint8_t high, std::uint8_t low) {
        constexpr std::uint8_t eraseMode = 0x84;
        simulated.Bus().WriteByte(0x58, reg::EEPROM3, eraseMode);
        simulated.Bench.Link->PrinterPortLink().EEPROMLink().ErasePage(high, low, 0);
    }

    void ExpectPEC(const char* status, const QColor& colour) {
        EXPECT_EQ(panel.Text("PECStatusLBL"), status);
        EXPECT_EQ(panel.MarkColour(), colour);
    }

    const QColor green{0, 192, 0};
    const QColor red{192, 0, 0};
};

TEST_F(BlockPanelOnTheBoard, ABlockWrittenToErasedEEPROMReadsBackWithAGoodPEC) {
    ErasePage(0x84, 0x40);
    StartInEEPROM("84", "40");
    panel.Click("RandDataFillCMD");
    panel.Click("BlockWriteCMD");
    ExpectPEC("PEC was OK", green);
    EXPECT_EQ(panel.Text("DeviceAddressFcsLBL"), "8F");
    EXPECT_EQ(panel.Text("AddrPtrFcsLBL"), "CD");
    panel.Click("BlockReadCMD");
    ExpectPEC("PEC was OK", green);
    EXPECT_EQ(panel.Row("ReadDataLBL", 1, 32), panel.Row("BlockWriteTXT", 1, 32));
    EXPECT_EQ(panel.Row("FcsLBL", 32, 32), panel.Text("FinalPECLBL"))
        << "the PEC after the last byte is the PEC";
    EXPECT_THAT(notices, IsEmpty());

    ErasePage(0x84, 0x40);
    panel.Type("ByteCountTXT", "5");
    panel.Click("BlockWriteCMD");
    panel.Click("BlockReadCMD");
    EXPECT_EQ(panel.Row("ReadDataLBL", 1, 5), panel.Row("BlockWriteTXT", 1, 5));
    EXPECT_EQ(panel.Row("ReadDataLBL", 6, 8), "FF FF FF") << "a short block ends where it ends";
}

} // namespace
} // namespace tqx
