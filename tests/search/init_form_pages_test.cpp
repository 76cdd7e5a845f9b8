#include "search/wizard_fixture.h"

#include <controls/look.h>

#include <QLineEdit>

namespace tqx {
namespace {

using testing::Contains;
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

TEST_F(InitFormPages, TheTextsStandToTheLetter) {
    Open();

    struct Text {
        const char* Name;
        const char* Words;
    };

    for (const auto& [name, words] :
         {Text{"WelcomeLBL", "This TQX7716 Search Wizard will find any TQX7716s that can be "
                             "controlled by this software"},
          Text{"WelcomeInstructionsLBL", "Click 'Next' to start."},
          Text{"Label1", "Click \"Skip\" to skip this process (you will not be able to "
                         "communicate with the TQX7716)."},
          Text{"PPSearchDescLBL",
               "Remember to connect the TQX7716 evaluation board to the printer port"},
          Text{"SMBusSearchDescLBL", "The Southbridge or ICH of Intel chipsets. For unsupported "
                                     "Intel chipsets, enter SMBBA here (Hex)."},
          Text{"SearchMediumInstLBL", "Click 'Next' to search for the TQX7716."},
          Text{"SearchingLBL", "Searching"},
          Text{"SearchingDetailsLBL", "Please wait while searching for available TQX7716s."},
          Text{"SearchResultsDescLBL", "Search Results"},
          Text{"SearchResultsLBL", "Please select one of the TQX7716s found above."},
          Text{"SearchInsLBL", "Click 'Next' to Continue"}}) {
        EXPECT_EQ(Label(name), words);
    }
    for (const auto& [name, words] :
         {Text{"BackCMD", "< Back"}, Text{"NextCMD", "Next >"}, Text{"FinishCMD", "Finish"},
          Text{"CancelCMD", "Cancel"}, Text{"SkipCMD", "Skip"},
          Text{"PPCheck", "Parallel Printer Port"}, Text{"SMBusCheck", "On-Board SMBus"},
          Text{"USBCheck", "USB"}}) {
        EXPECT_EQ(The<QAbstractButton>(name).text(), words);
    }
    for (const char* heading : {"SearchingLBL", "SearchResultsDescLBL"}) {
        EXPECT_EQ(The<QLabel>(heading).font().family(), "Arial");
        EXPECT_TRUE(The<QLabel>(heading).font().bold());
    }
}

TEST_F(InitFormPages, TheBuildDecidesOnTheMedia) {
    struct Case {
        const char* Build;
        bool SMBus;
        bool USBNote;
    };

    link.SMBusBase = 0xEFA0;
    for (const auto& [number, smbus, usbNote] :
         {Case{"950", true, true}, Case{"1111", true, true}, Case{"1998", true, false},
          Case{"2222", true, false}, Case{"3000", true, false}, Case{"2600", false, false},
          Case{"", false, false}}) {
        build = number;
        Open();
        EXPECT_TRUE(The<QCheckBox>("PPCheck").isChecked());
        EXPECT_FALSE(The<QCheckBox>("SMBusCheck").isChecked());
        EXPECT_EQ(The<QCheckBox>("SMBusCheck").isEnabled(), smbus) << number;
        EXPECT_EQ(The<QLineEdit>("SMBusBaseAddressTXT").isEnabled(), smbus);
        EXPECT_EQ(The<QLineEdit>("SMBusBaseAddressTXT").text(), smbus ? "EFA0" : "00000");
        EXPECT_EQ(The<QLabel>("SMBusSearchDescLBL").palette().windowText().color(),
                  QColor(smbus ? look::GreenInk : look::DarkRedInk));
        EXPECT_EQ(Label("SMBusSearchDescLBL").startsWith("Sorry"), !smbus);
        EXPECT_EQ(Label("USBSearchDescLBL"),
                  usbNote ? "Sorry, USB communication is not supported on Windows 95." : "");
        EXPECT_FALSE(The<QCheckBox>("USBCheck").isEnabled());
        EXPECT_TRUE(The<QCheckBox>("USBCheck").isHidden());
    }
    EXPECT_EQ(Label("SMBusSearchDescLBL"),
              "Sorry, SMBus communication is only supported on Windows 95,98 and ME.");
}

TEST_F(InitFormPages, OnlyHexadecimalCanBeTypedAsBaseAddress) {
    Open();
    Click("NextCMD");
    auto& box = The<QLineEdit>("SMBusBaseAddressTXT");
    box.clear();
    QTest::keyClicks(&box, "0xg1F40ab99z12");
    EXPECT_EQ(box.text(), "01F40ab9");
}

TEST_F(InitFormPages, NextAndBackTurnThePages) {
    Open();
    Click("NextCMD");
    EXPECT_EQ(State(), "2 Back Next Cancel");
    Click("BackCMD");
    EXPECT_EQ(State(), "1 Next Cancel");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(InitFormPages, TheKeyboardDrivesTheWizard) {
    ChipsAt({0x58});
    Open();
    wizard->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(wizard.get())); // shortcuts need it
    QTest::keyClick(wizard.get(), Qt::Key_Return);
    EXPECT_EQ(State(), "2 Back Next Cancel");
    QTest::keyClick(wizard.get(), Qt::Key_B, Qt::AltModifier); // shown as a press of 100 ms
    EXPECT_TRUE(QTest::qWaitFor([&] { return State() == "1 Next Cancel"; }));
    QTest::keyClick(wizard.get(), Qt::Key_Return);
    QTest::keyClick(wizard.get(), Qt::Key_Return);
    EXPECT_EQ(State(), "4 Back Finish Cancel");
    QTest::keyClick(wizard->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(The<QListWidget>("SearchResultsLIST").currentRow(), 1);
    QTest::keyClick(wizard->focusWidget(), Qt::Key_Return);
    EXPECT_THAT(link.Take(), Contains("MainForm.Show").Times(1));
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

TEST_F(InitFormPages, AFailedSkipLeavesTheWizardAsItWas) {
    Open();
    link.FailOn = "MainForm.Load";
    EXPECT_THROW(ClickRaising("SkipCMD"), LinkError);
    EXPECT_FALSE(recorded.Bench.Coms.Skipped);
    EXPECT_TRUE(wizard->isVisible());
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
