#include "console/register_console_fixture.h"

#include <controls/look.h>

#include <QLineEdit>
#include <QPushButton>

namespace tqx {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// The bench controls, put on view as nothing in the program does.
class RegisterConsoleBench : public RegisterConsoleTest {
protected:
    const std::vector<const char*> controls{"SSFrame1",   "SMBusTSTCMD", "AddPTR",
                                            "AddrptrTXT", "ADDrPTRCMD",  "Text6",
                                            "Text7",      "Command4",    "Command5"};

    void ShowAll() {
        for (const char* control : controls) {
            EXPECT_TRUE(Find(control).isHidden()) << control;
            Find(control).show();
        }
        ClickRow(0x60);
        link.Take();
    }

    QColor ColourOf(const char* button) { return Find(button).palette().color(QPalette::Button); }

    std::string Field(const char* name) { return Find<QLineEdit>(name).text().toStdString(); }

    void Fill(const char* name, const QString& text) { Find<QLineEdit>(name).setText(text); }

    void Press(const char* button) { QTest::mouseClick(&Find(button), Qt::LeftButton); }

    const QColor green{look::BenchSent};
    const QColor red{look::BenchChanged};
};

TEST_F(RegisterConsoleBench, TheAddressPointerReachesEveryRegisterAndReadsNothing) {
    ShowAll();
    ClickRow(0x17);
    ShowTabOf(0x17);
    link.Take();
    Fill("AddrptrTXT", "f3");
    QTest::mouseClick(&Find("AddrptrTXT"), Qt::LeftButton);
    EXPECT_EQ(ColourOf("ADDrPTRCMD"), red);
    Press("ADDrPTRCMD");
    EXPECT_EQ(ColourOf("ADDrPTRCMD"), green);
    EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0xF3);
    EXPECT_EQ(Text("current_reg_type_label"), "Reg not selected via text");
    EXPECT_EQ(Text("current_reg_address_label"), "F3");
    EXPECT_EQ(Text("bitname(0)"), "MinorRevCode");
    EXPECT_FALSE(Find("Text6").isEnabled());
    EXPECT_THAT(link.Take(), IsEmpty());

    for (const char* bad : {"", "1FF", "G0"}) {
        Fill("AddrptrTXT", bad);
        Press("ADDrPTRCMD");
        EXPECT_EQ(ColourOf("ADDrPTRCMD"), red);
        EXPECT_EQ(bench.Bus.BusCell.RegisterPointer, 0xF3);
    }
    Press("SMBusTSTCMD");
    EXPECT_THAT(link.Take(), IsEmpty());
}

TEST_F(RegisterConsoleBench, AWriteFieldSendsAByteAndShowsItInTheOther) {
    ShowAll();
    Fill("Text6", "A5");
    EXPECT_EQ(ColourOf("Command4"), red);
    Press("Command4");
    EXPECT_THAT(link.Take(),
                ElementsAre("BoardBus.PortAddress 378", "BoardBus.WriteByte 58 60 A5"));
    EXPECT_EQ(Field("Text7"), "165");
    EXPECT_EQ(Bits(), "10100101");
    EXPECT_EQ(ColourOf("Command4"), green);
    EXPECT_EQ(ColourOf("Command5"), green);
    Fill("Text7", "200");
    EXPECT_EQ(ColourOf("Command5"), red);
    Press("Command5");
    EXPECT_THAT(link.Take(), Contains("BoardBus.WriteByte 58 60 C8"));
    EXPECT_EQ(Field("Text6"), "C8");
}

TEST_F(RegisterConsoleBench, WhatTheWriteFieldsRefuse) {
    ShowAll();

    struct {
        const char* Field;
        const char* Button;
        const char* Entry;
        const char* Sent; // null: refused
    } const table[] = {
        {"Text6", "Command4", "100", nullptr},
        {"Text6", "Command4", "0", nullptr},
        {"Text6", "Command4", "", nullptr},
        {"Text6", "Command4", "a5", "BoardBus.WriteByte 58 60 0"},
        {"Text7", "Command5", "256", nullptr},
        {"Text7", "Command5", "99999999999", nullptr},
        {"Text7", "Command5", "1x5", "BoardBus.WriteByte 58 60 0"},
    };

    for (const auto& row : table) {
        Fill(row.Field, row.Entry);
        Press(row.Button);
        const auto calls = link.Take();
        if (row.Sent == nullptr) {
            EXPECT_THAT(calls, IsEmpty()) << row.Entry;
            EXPECT_EQ(ColourOf(row.Button), red) << row.Entry;
            EXPECT_EQ(Field("Text6") + Field("Text7"), "0000") << row.Entry;
        } else {
            EXPECT_THAT(calls, Contains(row.Sent)) << row.Entry;
        }
    }
}

} // namespace
} // namespace tqx
