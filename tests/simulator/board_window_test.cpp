#include "simulator/board_window_fixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;

using test::BoardWindowTest;

TEST_F(BoardWindowTest, PlugPowerAndSpeedGoToTheBoard) {
    Write(0x70, 0x12);
    Open("BusPage");
    Click(Find<QCheckBox>("PluggedCHK"));
    EXPECT_EQ(Read(CompanyID), 0xFF);
    Click(Find<QCheckBox>("PluggedCHK"));
    EXPECT_EQ(Read(0x70), 0x12);
    Click(Find<QCheckBox>("PoweredCHK"));
    EXPECT_EQ(Read(CompanyID), 0xFF);
    Click(Find<QCheckBox>("PoweredCHK"));
    EXPECT_EQ(Read(0x70), 0x00);
    constexpr double Speeds[] = {0, 100000, 400000};
    for (const int choice : {2, 1, 0}) {
        Click(Find<QRadioButton>("SpeedOPT", choice));
        EXPECT_EQ(Board.BusHertz(), Speeds[choice]);
    }
}

TEST_F(BoardWindowTest, BeginsAsTheBoardStands) {
    Board.Plugged(false);
    Board.BusHertz(400000);
    Board.SlaveAddress(0x5A);
    Board.BoardMode(true);
    Board.TheChip().ChassisOpen(true);
    Board.TheChip().WriteProtectPin(true);
    Board.TheChip().GPIOLevel(10, true);
    Board.TheFaults().Every(sim::Fault::WrongPEC, 7);
    const BoardWindow second(Board);
    for (const char* checked :
         {"SpeedOPT(2)", "ChassisCHK", "WriteProtectCHK", "GPIOHighCHK(10)"}) {
        EXPECT_TRUE(second.findChild<QAbstractButton*>(checked)->isChecked()) << checked;
    }
    EXPECT_FALSE(second.findChild<QCheckBox*>("PluggedCHK")->isChecked());
    EXPECT_EQ(second.findChild<QComboBox*>("AddressCOMBO")->currentText(), "5Ah (SMBus 2Dh)");
    EXPECT_EQ(second.findChild<QComboBox*>("BoardModeCOMBO")->currentText(), "True");
    EXPECT_EQ(second.findChild<QComboBox*>("FaultCOMBO(4)")->currentText(), "Every");
    EXPECT_EQ(second.findChild<QTabWidget*>("BoardTab")->tabText(4), "Faults: 1 on");
}

TEST_F(BoardWindowTest, ClosingPutsItAwayAndF12BringsItBack) {
    Open("BusPage");
    TheWindow.close();
    EXPECT_FALSE(TheWindow.isVisible());
    QLineEdit other;
    other.show();
    QTest::keyClick(&other, Qt::Key_F12);
    EXPECT_TRUE(TheWindow.isVisible());
}

} // namespace
} // namespace tqx
