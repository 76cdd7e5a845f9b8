#include "search/wizard_fixture.h"

#include <controls/look.h>

#include <QLineEdit>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InitFormPages : public test::WizardTest {};

TEST_F(InitFormPages, TheBuildDecidesOnTheMedia) {
    struct {
        const char* Build;
        bool SMBus;
        bool USBNote;
    } const table[] = {
        {"950", true, true},   {"1111", true, true},  {" 1998 A ", true, false},
        {"2222", true, false}, {"3000", true, false}, {"2600", false, false},
        {"", false, false},
    };

    link.SMBusBase = 0xEFA0;
    for (const auto& [number, smbus, usbNote] : table) {
        build = number;
        Open();
        EXPECT_EQ(Find<QCheckBox>("SMBusCheck").isEnabled(), smbus) << number;
        EXPECT_EQ(Find<QLineEdit>("SMBusBaseAddressTXT").isEnabled(), smbus);
        EXPECT_EQ(Find<QLineEdit>("SMBusBaseAddressTXT").text(), smbus ? "EFA0" : "00000");
        EXPECT_EQ(Find<QLabel>("SMBusSearchDescLBL").palette().windowText().color(),
                  QColor(smbus ? look::GreenInk : look::DarkRedInk));
        EXPECT_EQ(Text("SMBusSearchDescLBL").starts_with("Sorry"), !smbus);
        EXPECT_EQ(Text("USBSearchDescLBL"),
                  usbNote ? "Sorry, USB communication is not supported on Windows 95." : "");
        EXPECT_FALSE(Find("USBCheck").isEnabled()) << "no build of the program reaches USB";
    }
}

TEST_F(InitFormPages, BackLeadsToTheWelcomeAndNoFurther) {
    Open();
    Click("NextCMD");
    EXPECT_EQ(State(), "2 Back Next Cancel");
    Click("BackCMD");
    EXPECT_EQ(State(), "1 Next Cancel");
}

} // namespace
} // namespace tqx
