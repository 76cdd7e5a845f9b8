#include "simulator/board_window_fixture.h"

#include <QSpinBox>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;
constexpr int Always = 1;
constexpr int Every = 2;

class FaultsPageTest : public test::BoardWindowTest {
protected:
    FaultsPageTest() { Open("FaultsPage"); }

    void Set(sim::Fault fault, int when) {
        Choose(Find<QComboBox>("FaultCOMBO", static_cast<int>(fault)), when);
    }

    QSpinBox& Nth(sim::Fault fault) {
        return Find<QSpinBox>("FaultEveryTXT", static_cast<int>(fault));
    }

    QString TabText() {
        auto& tabs = Find<QTabWidget>("BoardTab");
        return tabs.tabText(tabs.currentIndex());
    }
};

TEST_F(FaultsPageTest, EachLineSetsItsOwnFault) {
    for (std::size_t index = 0; index < sim::FaultCount; ++index) {
        Set(static_cast<sim::Fault>(index), Always);
        EXPECT_EQ(TabText(), "Faults: 1 on");
        for (std::size_t other = 0; other < sim::FaultCount; ++other) {
            EXPECT_EQ(Board.TheFaults().Every(static_cast<sim::Fault>(other)),
                      other == index ? 1U : 0U);
        }
        Set(static_cast<sim::Fault>(index), 0);
    }
}

TEST_F(FaultsPageTest, EveryNthStrikesAtThatOccasion) {
    EXPECT_FALSE(Nth(sim::Fault::NoAnswer).isEnabled());
    Set(sim::Fault::NoAnswer, Every);
    Nth(sim::Fault::NoAnswer).selectAll();
    QTest::keyClicks(&Nth(sim::Fault::NoAnswer), "3");
    QTest::keyClick(&Nth(sim::Fault::NoAnswer), Qt::Key_Return);
    for (int transfer = 1; transfer <= 6; ++transfer) {
        EXPECT_EQ(Read(CompanyID), transfer % 3 == 0 ? 0xFF : 0x41) << transfer;
    }
}

} // namespace
} // namespace tqx
