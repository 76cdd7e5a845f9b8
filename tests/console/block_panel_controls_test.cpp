#include "console/block_panel_fixture.h"
#include "support/recorded_bench.h"

#include <QApplication>
#include <QClipboard>

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

TEST_F(BlockPanelControls, TheHighByteGoesWithTheEEPROM) {
    EXPECT_FALSE(panel.Find("EEPROMHighByteCOMBO").isEnabled());
    panel.Click("AccessEEPROMCHK");
    EXPECT_TRUE(panel.Find("EEPROMHighByteCOMBO").isEnabled());
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
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("02 03 04 "));
    Paste(1, QApplication::clipboard()->text());
    EXPECT_EQ(panel.Row("BlockWriteTXT", 1, 32), panel.Row("ReadDataLBL", 1, 32));
}

} // namespace
} // namespace tqx
