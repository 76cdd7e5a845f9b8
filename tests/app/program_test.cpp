#include "app/program_fixture.h"

#include <device/register_addresses.h>
#include <link/link_new_com_port.h>
#include <simulated/simulated_board.h>

namespace tqx {
namespace {

/// The program on the simulated board.
class SimulatorTest : public test::ProgramTest {
protected:
    sim::SimulatedBoard board{{.BoardMode = true, .SlaveAddress = 0x5A}};

    SimulatorTest() {
        Start({board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), "Simulated board"});
    }
};

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

} // namespace
} // namespace tqx
