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
