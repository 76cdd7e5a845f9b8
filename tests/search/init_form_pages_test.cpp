#include "search/wizard_fixture.h"

#include <controls/look.h>

#include <QLineEdit>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InitFormPages : public test::WizardTest {};

TEST_F(InitFormPages, LoadingSetsTheStartUpOptionBeforeAnyOtherCall) {
    link.RecordGets = true;
    Make();
    EXPECT_THAT(link.Take(), ElementsAre("BoardBus.StartupOption 0", "SMBusLink.BaseAddress?"));
    EXPECT_EQ(wizard->windowTitle(), "TQX7716 Search Wizard");
    EXPECT_EQ(State(), "1 Next Cancel");
}

TEST_F(InitFormPages, AFailedLoadIsToldAndTheWindowStays) {
    link.FailOn = "BoardBus.StartupOption";
    Open();
    EXPECT_THAT(dialogs.Messages, ElementsAre("critical|Error|Error in Init Form Load"));
    EXPECT_TRUE(wizard->isVisible());
    EXPECT_EQ(State(), "1 Next Cancel");
}

TEST_F(InitFormPages, TheBuildDecidesOnTheMedia) {
    struct {
        const char* Build;
        bool SMBus;
        bool USBNote;
    } const table[] = {
        {"950", true, true},   {"1111", true, true},   {"1998", true, false}, {"2222", true, false},
        {"3000", true, false}, {"2600", false, false}, {"", false, false},
    };

    link.SMBusBase = 0xEFA0;
    for (const auto& [number, smbus, usbNote] : table) {
        build = number;
        Open();
        EXPECT_EQ(The<QCheckBox>("SMBusCheck").isEnabled(), smbus) << number;
        EXPECT_EQ(The<QLineEdit>("SMBusBaseAddressTXT").isEnabled(), smbus);
        EXPECT_EQ(The<QLineEdit>("SMBusBaseAddressTXT").text(), smbus ? "EFA0" : "00000");
        EXPECT_EQ(The<QLabel>("SMBusSearchDescLBL").palette().windowText().color(),
                  QColor(smbus ? look::GreenInk : look::DarkRedInk));
        EXPECT_EQ(Label("SMBusSearchDescLBL").startsWith("Sorry"), !smbus);
        EXPECT_EQ(Label("USBSearchDescLBL"),
                  usbNote ? "Sorry, USB communication is not supported on Windows 95." : "");
    }
}

TEST_F(InitFormPages, OnlyHexadecimalCanBeTypedAsBaseAddress) {
    Open();
    Click("NextCMD");
    auto& box = The<QLineEdit>("SMBusBaseAddressTXT");
    box.clear();
    QTest::keyClicks(&box, "0xg1F40ab99z12");
    EXPECT_EQ(box.text(), "01F40ab9");
}

TEST_F(InitFormPages, NoMediumIsToldAndNothingIsLoaded) {
    Search(false, false);
    EXPECT_THAT(dialogs.Messages,
                ElementsAre("exclamation|A problem was detected|Please select a search medium"));
    EXPECT_EQ(State(), "2 Back Next Cancel");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(InitFormPages, SkipShowsTheMainWindowAndHidesTheWizard) {
    Open();
    Click("SkipCMD");
    EXPECT_THAT(link.Take(), ElementsAre("MainForm.Load", "MainForm.Show"));
    EXPECT_TRUE(recorded.Bench.Coms.Skipped);
    EXPECT_FALSE(wizard->isVisible());
    EXPECT_EQ(cell.SlaveAddress, 0);
    EXPECT_EQ(cell.ComsMedium, 0);
}

TEST_F(InitFormPages, CancelEscapeAndTheCloseBoxEndTheApplication) {
    Open();
    Click("CancelCMD");
    EXPECT_THAT(link.Take(), ElementsAre("MainForm.Unload", "MainForm.EndApplication"));
    Open();
    QTest::keyClick(wizard.get(), Qt::Key_Escape);
    EXPECT_THAT(link.Take(), ElementsAre("MainForm.Unload", "MainForm.EndApplication"));
    Open();
    wizard->close();
    EXPECT_THAT(link.Take(), ElementsAre("MainForm.EndApplication"));
    EXPECT_FALSE(wizard->isVisible());
}

} // namespace
} // namespace tqx
