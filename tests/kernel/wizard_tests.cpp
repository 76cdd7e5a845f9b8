// The program on the board for real hardware under a real kernel, driven by its controls. Run by
// kernel-test.sh as an ordinary user; each suite is a state of the machine.

#include "kernel/kernel_bench.h"
#include "registers/register_console.h"
#include "support/answered_dialogs.h"

#include <app/console_program.h>
#include <controls/row_label.h>
#include <link/cell_transfer.h>
#include <linuxboard/linux_board.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

namespace tqx::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Wizard : public testing::Test {
protected:
    LinuxBoard board;
    AnsweredDialogs dialogs;
    std::unique_ptr<ConsoleProgram> program;

    void SetUp() override {
        program = std::make_unique<ConsoleProgram>(
            BoardChoice{board.Factory(), board.OSVersionInfoFactory(), {}}, dialogs);
        program->Start();
    }

    template <typename Control>
    static Control& The(QWidget* in, const char* name) {
        auto* control = in->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }

    void Press(const char* button) {
        QTest::mouseClick(&The<QPushButton>(program->Wizard(), button), Qt::LeftButton);
    }

    void Search(bool printerPort, bool smbus) {
        Press("NextCMD");
        The<QCheckBox>(program->Wizard(), "PPCheck").setChecked(printerPort);
        auto& check = The<QCheckBox>(program->Wizard(), "SMBusCheck");
        EXPECT_EQ(check.isEnabled(), smbus);
        check.setChecked(smbus);
        Press("NextCMD");
    }

    QListWidget& Results() { return The<QListWidget>(program->Wizard(), "SearchResultsLIST"); }

    std::string Row(int index) { return Results().item(index)->text().toStdString(); }

    /// Ends the wizard on a row and reads two registers by clicks on the register console.
    void FinishOn(int row) {
        Results().setCurrentRow(row);
        Press("FinishCMD");
        ASSERT_NE(program->Main(), nullptr);
        ASSERT_TRUE(program->Main()->isVisible());
        EXPECT_EQ(Register(0x16), "41");
        EXPECT_EQ(program->TheBench().Bus.BusCell.RegisterPointer, 0x16);
        WriteAt(program->TheBench().Bus, 0x18, 0xA5);
        EXPECT_EQ(Register(0x18), "A5");
    }

    std::string Register(int address) {
        auto* row = program->Main()->findChild<RowLabel*>(
            QString("read_writedisplaytext(%1)").arg(address));
        QTest::mouseClick(row, Qt::LeftButton);
        return The<QLabel>(program->Main(), "p_Value_read_hex_label").text().toStdString();
    }
};

/// Neither port nor adapter.
using BareWizard = Wizard;

TEST_F(BareWizard, FindsNothingAndSaysSo) {
    Search(true, false);
    EXPECT_EQ(Results().count(), 0);
    EXPECT_THAT(The<QLabel>(program->Wizard(), "SearchResultsLBL").text().toStdString(),
                StartsWith("Sorry, no TQX7716s were found"));
    EXPECT_FALSE(The<QPushButton>(program->Wizard(), "FinishCMD").isEnabled());
    EXPECT_TRUE(dialogs.Messages.isEmpty()) << dialogs.Messages.join("\n").toStdString();
}

/// The chip on a printer port and on an SMBus.
using ChipWizard = Wizard;

TEST_F(ChipWizard, RunsWithoutAnyPrivilege) {
    EXPECT_NE(geteuid(), 0U);
    EXPECT_THAT(ReadFile("/proc/self/status"), HasSubstr("CapEff:\t0000000000000000"));
}

TEST_F(ChipWizard, GivesItsRowsAndGoesOnOverTheLines) {
    Search(true, true);
    ASSERT_EQ(Results().count(), 2);
    EXPECT_THAT(Row(0), StartsWith("Found an TQX7716 at:2Ch, on printer port:278h"));
    EXPECT_THAT(Row(1), StartsWith("An TQX7716 was found at:2Ch, on the SMBus"));
    FinishOn(0);
}

TEST_F(ChipWizard, GoesOnOverTheSMBus) {
    Search(false, true);
    ASSERT_EQ(Results().count(), 1);
    EXPECT_THAT(Row(0), testing::EndsWith("SMBus2C"));
    FinishOn(0);
}

} // namespace
} // namespace tqx::test
