#include "app/program_fixture.h"

#include <device/register_addresses.h>
#include <link/link_new_com_port.h>
#include <simulated/simulated_board.h>

namespace tqx {
namespace {

using testing::IsEmpty;

/// The program on the simulated board.
class SimulatorTest : public test::ProgramTest {
protected:
    sim::SimulatedBoard board{{.BoardMode = true, .SlaveAddress = 0x5A}};

    SimulatorTest() {
        Start({board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), "Simulated board"});
    }

    BusCell& Cell() { return program->TheBench().Bus.BusCell; }
};

TEST_F(SimulatorTest, FinishWatchesTheChipOnEitherMedium) {
    struct Medium {
        int Row;
        std::uint8_t ComsMedium;
        std::uint8_t SlaveAddress;
        std::uint16_t PortAddress;
    };

    for (const Medium& medium :
         {Medium{0, ComsPrinterPort, 0x5A, 0x378}, Medium{1, ComsSMBus, 0x2D, 0}}) {
        SCOPED_TRACE(medium.Row);
        Start({board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), {}});
        EXPECT_EQ(program->Main(), nullptr);
        Choose(medium.Row);
        ASSERT_TRUE(program->Main()->isVisible());
        EXPECT_FALSE(program->Wizard()->isVisible());
        EXPECT_EQ(Cell().ComsMedium, medium.ComsMedium);
        EXPECT_EQ(Cell().SlaveAddress, medium.SlaveAddress);
        EXPECT_EQ(Cell().PortAddress, medium.PortAddress);
        EXPECT_EQ(ReadAt(program->TheBench().Bus, reg::CompanyID), 0x41);
        EXPECT_EQ(program->TheBench().Coms.ReadRegisterByte(reg::CompanyID), 0x41);

        Press("ControlPanel1");
        Click(*program->Main(), "visualdisplaytext(18)"); // "+12V"
        const auto& gauge = Find(*program->Main(), "limits_gauge");
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return gauge.property("Caption").toString().endsWith(" V"); }));
        EXPECT_THAT(Told(), IsEmpty());
    }
}

TEST_F(SimulatorTest, SkipOpensTheMainWindowWithoutAChip) {
    ClickWizard("SkipCMD");
    ASSERT_TRUE(program->Main()->isVisible());
    EXPECT_FALSE(program->Wizard()->isVisible());
    EXPECT_LT(program->Main()->width(), 1120) << "the screen of this test is narrower than that";
    EXPECT_TRUE(program->TheBench().Coms.Skipped);
    EXPECT_EQ(Cell().SlaveAddress, 0);
    for (const char* key : {"ReadWrite1", "ControlPanel1", "BlockReadWrite"}) {
        Press(key);
    }
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_TRUE(EndsBy([this] { program->Main()->close(); }));
}

TEST_F(SimulatorTest, EveryWayOutOfTheWizardEndsTheProgram) {
    EXPECT_TRUE(EndsBy([this] { ClickWizard("CancelCMD"); }));

    Start({board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), {}});
    EXPECT_TRUE(EndsBy([this] { program->Wizard()->close(); }));

    Start({board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), {}});
    EXPECT_TRUE(EndsBy([this] {
        Search();
        ASSERT_NE(program->Main(), nullptr);
        ClickWizard("CancelCMD");
    }));
    EXPECT_EQ(program->Main(), nullptr);
    EXPECT_FALSE(program->Wizard()->isVisible());
}

TEST_F(SimulatorTest, ClosingTheMainWindowTakesEveryToolWindowAlong) {
    Choose(0);
    Press("ControlPanel1");
    Press("GPIO");
    Press("RegAccess");
    Press("RegAccess");
    ASSERT_NE(Window("GPIOConfigFRM"), nullptr);
    Click(*Window("EEPROMComFRM"), "AutoReadCHK");
    EXPECT_TRUE(EndsBy([this] { program->Main()->close(); }));
    EXPECT_EQ(Window("GPIOConfigFRM"), nullptr);
    EXPECT_EQ(Window("EEPROMComFRM"), nullptr);
    EXPECT_THAT(Told(), IsEmpty());
}

/// The box before was answered OK, but this question was not.
TEST_F(SimulatorTest, AnEndWhileItAsksInitializesNothing) {
    Choose(0);
    Press("Go1");
    WriteAt(program->TheBench().Bus, reg::Mask6, 0x00);
    duringBox = [this] { program->End(); };
    EXPECT_TRUE(EndsBy([this] { Press("Go1"); }));
    EXPECT_THAT(boxes, testing::SizeIs(2));
    EXPECT_EQ(ReadAt(program->TheBench().Bus, reg::Mask6), 0x00);
}

/// The desktop shows a caption as it is set.
TEST_F(SimulatorTest, NothingIsAddedToTheCaptionsOfTheWindows) {
    EXPECT_EQ(QApplication::applicationDisplayName(), QApplication::applicationName());
    EXPECT_EQ(program->Wizard()->windowTitle(), "TQX7716 Search Wizard");
}

} // namespace
} // namespace tqx
