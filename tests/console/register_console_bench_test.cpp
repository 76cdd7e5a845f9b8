#include "console/register_console_fixture.h"

#include <controls/look.h>

#include <QLineEdit>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The bench controls, put on view as nothing in the program does.
class RegisterConsoleBench : public RegisterConsoleTest {
protected:
    void SetUp() override {
        for (const char* control :
             {"SSFrame1", "AddrptrTXT", "ADDrPTRCMD", "Text6", "Text7", "Command4", "Command5"}) {
            EXPECT_TRUE(Find(control).isHidden()) << control;
            Find(control).show();
        }
        ClickRow(0x60);
        link.Take();
    }

    /// Fills a field, presses its button, and gives what went out.
    std::vector<std::string> Send(const char* field, const char* button, const QString& text) {
        Find<QLineEdit>(field).setText(text);
        QTest::mouseClick(&Find(button), Qt::LeftButton);
        return link.Take();
    }

    QColor ColourOf(const char* button) { return Find(button).palette().color(QPalette::Button); }

    const QColor sent{look::BenchSent};
    const QColor changed{look::BenchChanged};
};

TEST_F(RegisterConsoleBench, TheAddressPointerReachesEveryRegisterAndReadsNothing) {
    EXPECT_THAT(Send("AddrptrTXT", "ADDrPTRCMD", "f3"), IsEmpty());
    EXPECT_EQ(ColourOf("ADDrPTRCMD"), sent);
    EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0xF3);
    EXPECT_EQ(Text("current_reg_type_label"), "Reg not selected via text");
    EXPECT_EQ(Text("current_reg_address_label"), "F3");
    QTest::mouseClick(&Find("AddrptrTXT"), Qt::LeftButton);
    for (const char* bad : {"", "1FF", "G0"}) {
        Send("AddrptrTXT", "ADDrPTRCMD", bad);
        EXPECT_EQ(ColourOf("ADDrPTRCMD"), changed);
        EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0xF3);
    }
}

TEST_F(RegisterConsoleBench, AWriteFieldSendsAByteAndShowsItInTheOther) {
    EXPECT_THAT(Send("Text6", "Command4", "A5"),
                ElementsAre("BoardBus.PortAddress 378", "BoardBus.WriteByte 58 60 A5"));
    EXPECT_EQ(Find<QLineEdit>("Text7").text(), "165");
    EXPECT_EQ(Bits(), "10100101");
    EXPECT_EQ(ColourOf("Command4"), sent);
    EXPECT_THAT(Send("Text7", "Command5", "200"),
                ElementsAre("BoardBus.PortAddress 378", "BoardBus.WriteByte 58 60 C8"));
    EXPECT_EQ(Find<QLineEdit>("Text6").text(), "C8");
}

TEST_F(RegisterConsoleBench, AWriteFieldThatIsNoByteSendsNoneOrZero) {
    struct {
        const char* Field;
        const char* Button;
        const char* Entry;
        bool Sent;
    } const table[] = {
        {"Text6", "Command4", "100", false}, {"Text6", "Command4", "0", false},
        {"Text6", "Command4", "", false},    {"Text6", "Command4", "a5", true},
        {"Text7", "Command5", "256", false}, {"Text7", "Command5", "99999999999", false},
        {"Text7", "Command5", "1x5", true},
    };

    for (const auto& row : table) {
        const auto calls = Send(row.Field, row.Button, row.Entry);
        EXPECT_EQ(ColourOf(row.Button), row.Sent ? sent : changed) << row.Entry;
        EXPECT_EQ(calls.empty(), !row.Sent) << row.Entry;
        EXPECT_TRUE(calls.empty() || calls.back() == "BoardBus.WriteByte 58 60 0") << row.Entry;
    }
}

} // namespace
} // namespace tqx
