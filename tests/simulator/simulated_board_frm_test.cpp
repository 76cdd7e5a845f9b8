#include "simulator/board_window_fixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;

using SimulatedBoardFRMTest = test::BoardWindowTest;

TEST_F(SimulatedBoardFRMTest, PlugAndPowerSilenceTheChip) {
    Open("BusPage");
    Write(0x70, 0x12);
    Click(Find<QCheckBox>("PluggedCHK"));
    EXPECT_EQ(Read(CompanyID), 0xFF);
    Click(Find<QCheckBox>("PluggedCHK"));
    EXPECT_EQ(Read(0x70), 0x12);
    Click(Find<QCheckBox>("PoweredCHK"));
    EXPECT_EQ(Read(CompanyID), 0xFF);
    Open("VoltagesPage");
    EXPECT_EQ(Find<QLabel>("InputValueLBL", static_cast<int>(ChipInput::Plus5V)).text(), "---");
    Open("BusPage");
    Click(Find<QCheckBox>("PoweredCHK"));
    EXPECT_EQ(Read(0x70), 0x00);
}

TEST_F(SimulatedBoardFRMTest, TheSpeedGoesToTheBus) {
    Open("BusPage");
    EXPECT_TRUE(Find<QRadioButton>("SpeedOPT", 0).isChecked());
    Click(Find<QRadioButton>("SpeedOPT", 2));
    EXPECT_EQ(Board.BusHertz(), 400000);
    Click(Find<QRadioButton>("SpeedOPT", 1));
    EXPECT_EQ(Board.BusHertz(), 100000);
    Click(Find<QRadioButton>("SpeedOPT", 0));
    EXPECT_EQ(Board.BusHertz(), 0);
}

TEST_F(SimulatedBoardFRMTest, BeginsAsTheBoardStands) {
    Board.Plugged(false);
    Board.BusHertz(400000);
    Board.SlaveAddress(0x5A);
    Board.BoardMode(true);
    Board.TheChip().ChassisOpen(true);
    Board.TheChip().WriteProtectPin(true);
    Board.TheChip().GPIOLevel(10, true);
    Board.TheChip().ThePlant().Force(ChipInput::Plus5V, 4.5);
    Board.TheFaults().Every(Fault::WrongPEC, 7);
    const SimulatedBoardFRM second(Board);
    for (const char* checked :
         {"SpeedOPT(2)", "ChassisCHK", "WriteProtectCHK", "GPIOHighCHK(10)"}) {
        EXPECT_TRUE(second.findChild<QAbstractButton*>(checked)->isChecked()) << checked;
    }
    EXPECT_FALSE(second.findChild<QCheckBox*>("PluggedCHK")->isChecked());
    EXPECT_EQ(second.findChild<QComboBox*>("AddressCOMBO")->currentText(), "5Ah (SMBus 2Dh)");
    EXPECT_EQ(second.findChild<QComboBox*>("BoardModeCOMBO")->currentText(), "True");
    EXPECT_EQ(second.findChild<QComboBox*>("FaultCOMBO(4)")->currentText(), "Every");
    EXPECT_EQ(second.findChild<QTabWidget*>("BoardTab")->tabText(4), "Faults: 1 on");
    EXPECT_EQ(Board.ValueAt(ChipInput::Plus5V), 4.5);
}

TEST_F(SimulatedBoardFRMTest, ClosingPutsItAwayAndF12BringsItBack) {
    Open("BusPage");
    Window.close();
    EXPECT_FALSE(Window.isVisible());
    QLineEdit other;
    other.show();
    QTest::keyClick(&other, Qt::Key_F12);
    EXPECT_TRUE(Window.isVisible());
}

TEST_F(SimulatedBoardFRMTest, FitsBesideOtherWindowsOnASmallScreen) {
    EXPECT_LE(Window.sizeHint().width(), 470);
    EXPECT_LE(Window.sizeHint().height(), 680);
}

} // namespace
} // namespace tqx
