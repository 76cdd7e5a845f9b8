#include "inputs_page.h"
#include "simulator/board_window_fixture.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QSlider>

#include <set>

namespace tqx {
namespace {

using namespace std::chrono_literals;

constexpr int Plus12V = static_cast<int>(sim::ChipInput::Plus12V);
constexpr int Fan0 = static_cast<int>(sim::ChipInput::Fan0);
constexpr std::uint8_t Plus12VValue = 0x2E;
constexpr std::uint8_t Fan0Value = 0x38;

class InputsPageTest : public test::BoardWindowTest {
protected:
    QCheckBox& Hold(int input) { return Find<QCheckBox>("HoldCHK", input); }

    QDoubleSpinBox& Box(int input) { return Find<QDoubleSpinBox>("HoldTXT", input); }

    QSlider& Slider(int input) { return Find<QSlider>("HoldSlider", input); }

    QString Shown(int input) { return Find<QLabel>("InputValueLBL", input).text(); }

    double Volts() { return 0.062 + Read(Plus12VValue) * 0.062259; }
};

TEST_F(InputsPageTest, HoldKeepsTheValueOfThisMomentAndClearLetsItRun) {
    Open("TempsPage");
    Click(Hold(Fan0));
    const double held = Box(Fan0).value();
    const std::uint8_t count = Read(Fan0Value);
    Time += 5min + 100ms;
    EXPECT_EQ(Read(Fan0Value), count);
    EXPECT_EQ(Board.ValueAt(sim::ChipInput::Fan0), held);
    Click(Hold(Fan0));
    EXPECT_NE(Board.ValueAt(sim::ChipInput::Fan0), held);
}

TEST_F(InputsPageTest, TheSliderMovesByKeyboardOverTheWholeRange) {
    Open("VoltagesPage");
    Slider(Plus12V).setFocus();
    QTest::keyClick(&Slider(Plus12V), Qt::Key_Home);
    EXPECT_EQ(Read(Plus12VValue), 0x00);
    QTest::keyClick(&Slider(Plus12V), Qt::Key_Right);
    EXPECT_EQ(Read(Plus12VValue), 0x01);
    QTest::keyClick(&Slider(Plus12V), Qt::Key_End);
    EXPECT_EQ(Read(Plus12VValue), 0xFF);
}

TEST_F(InputsPageTest, ARunningInputIsFollowedAndNotHeldByIt) {
    Open("VoltagesPage");
    const QString before = Shown(Plus12V);
    Time += 7s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(Plus12V) != before; }, 2000));
    EXPECT_NEAR(Box(Plus12V).value(), Board.ValueAt(sim::ChipInput::Plus12V), 0.001);
    EXPECT_FALSE(Board.IsForced(sim::ChipInput::Plus12V));
}

TEST_F(InputsPageTest, ARefreshLeavesWhatIsBeingTyped) {
    Open("VoltagesPage");
    const QString before = Shown(Plus12V);
    Box(Plus12V).setFocus();
    Box(Plus12V).selectAll();
    QTest::keyClicks(&Box(Plus12V), "9.5");
    Time += 7s;
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(Plus12V) != before; }, 2000));
    EXPECT_EQ(Box(Plus12V).text(), "9.5");
    EXPECT_NEAR(Volts(), 12.05, 0.5) << "half a number goes nowhere";
    QTest::keyClick(&Box(Plus12V), Qt::Key_Return);
    EXPECT_NEAR(Volts(), 9.5, 0.032);
    EXPECT_TRUE(Hold(Plus12V).isChecked());
}

TEST(InputRange, EveryInputHasANameAndItsModelledValueInItsRange) {
    sim::SimulatedBoard board;
    std::set<QString> names;
    for (const sim::InputFacts& facts : sim::ChipInputs) {
        const InputRange range = RangeOf(facts.Input);
        names.insert(range.Caption);
        const double value = board.ValueAt(facts.Input);
        EXPECT_GE(value, range.Min) << range.Caption.toStdString();
        EXPECT_LE(value, range.Max) << range.Caption.toStdString();
        for (const int position : {0, 1, range.LastPosition()}) {
            EXPECT_EQ(range.PositionOf(range.ValueAt(position)), position);
        }
        EXPECT_DOUBLE_EQ(range.ValueAt(range.LastPosition()), range.Max);
    }
    EXPECT_EQ(names.size(), sim::ChipInputCount);
}

} // namespace
} // namespace tqx
