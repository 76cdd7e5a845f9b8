#include "erase_eeprom/erase_eeprom_frm.h"
#include "tools/tool_fixture.h"

#include <console/high_byte_combo.h>

#include <QProgressBar>
#include <QSignalSpy>

namespace tqx {
namespace {

using testing::ElementsAre;

class EraseEEPROMTest : public test::ToolFixture {
protected:
    EraseEEPROMFRM window{bench, door, waiter};

    void SetUp() override { window.show(); }

    QWidget& Window() override { return window; }

    int Progress() { return Find<QProgressBar>("TotalProgress").value(); }

    /// Clicks Erase All, and does `act` in its `nth` pause.
    std::vector<std::string> EraseAll(int nth, const std::function<void()>& act) {
        int pauses = 0;
        duringWait = [&pauses, nth, act] {
            if (++pauses == nth) {
                act();
            }
        };
        Click("EraseAllCMD");
        return link.Take();
    }
};

TEST_F(EraseEEPROMTest, ErasesThePageOfTheRow) {
    link.Registers[0x13] = 0xF1;
    Find<HighByteCombo>("EEPROMHighByteCOMBO").setCurrentText("9F");
    Click("ErasePageCMD(3)");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                            "BoardBus.WriteByte 58 13 F4", "EEPROMLink.ErasePage 9F C0 0"));
    EXPECT_EQ(Text("StatusLBL"), "Erase command for page 9F C0 sent.");
}

TEST_F(EraseEEPROMTest, WriteProtectionWarnsAndErasesAllTheSame) {
    link.Registers[0x13] = 0x08;
    Click("ErasePageCMD(0)");
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(link.Registers[0x13], 0x0C);
    EXPECT_EQ(link.Calls.back(), "EEPROMLink.ErasePage 80 0 0");
}

TEST_F(EraseEEPROMTest, EraseAllTakesEveryPageInOrder) {
    std::vector<std::string> expected{"BoardBus.ReadByte 58 13", "BoardBus.PortAddress 378",
                                      "BoardBus.WriteByte 58 13 4"};
    for (unsigned page = 0; page < 128; ++page) {
        char erase[64];
        std::snprintf(erase, sizeof erase, "EEPROMLink.ErasePage %X %X 0", 0x80 + page / 4,
                      page % 4 * 64);
        expected.insert(expected.end(), {erase, "Wait 100"});
    }
    EXPECT_EQ(EraseAll(0, [] {}), expected);
    EXPECT_EQ(Progress(), 31);
    EXPECT_EQ(Text("HighByteVaueLBL") + Text("LowByteValueLBL"), "9FC0");
    EXPECT_EQ(Text("StatusLBL"), "Erase commands for all pages sent.");
    EXPECT_FALSE(Enabled("StopEraseCMD"));
}

TEST_F(EraseEEPROMTest, ACloseStopsTheLoopFirst) {
    QSignalSpy unloaded(&window, &ToolWindow::Unloaded);
    const std::vector<std::string> calls = EraseAll(7, [this, &unloaded] {
        Click("CloseCMD");
        EXPECT_TRUE(window.isHidden());
        EXPECT_EQ(unloaded.count(), 0);
    });
    EXPECT_EQ(Only(calls, "EEPROMLink.ErasePage").size(), 7U);
    EXPECT_EQ(unloaded.count(), 1);
}

TEST_F(EraseEEPROMTest, AFailedLinkCallLeavesTheWindowUsable) {
    Click("ErasePageCMD(0)");
    link.FailOn = "EEPROMLink.ErasePage 82";
    ClickFails("EraseAllCMD");
    EXPECT_FALSE(Enabled("StopEraseCMD"));
    EXPECT_TRUE(Enabled("EraseAllCMD"));
    EXPECT_EQ(Text("StatusLBL"), "") << "still tells of the page before";
    link.FailOn.clear();
    link.Take();
    EXPECT_EQ(Only(EraseAll(0, [] {}), "EEPROMLink.ErasePage").size(), 128U);
}

} // namespace
} // namespace tqx
