#include "simulator/board_window_fixture.h"

#include <link/link_error.h>

#include <QSpinBox>

namespace tqx {
namespace {

constexpr std::uint8_t CompanyID = 0x16;
constexpr int Always = 1;
constexpr int Every = 2;

class FaultsPageTest : public test::BoardWindowTest {
protected:
    FaultsPageTest() { Open("FaultsPage"); }

    void Set(Fault fault, int when) {
        Choose(Find<QComboBox>("FaultCOMBO", static_cast<int>(fault)), when);
    }

    QSpinBox& Nth(Fault fault) { return Find<QSpinBox>("FaultEveryTXT", static_cast<int>(fault)); }

    QString TabText() {
        auto& tabs = Find<QTabWidget>("BoardTab");
        return tabs.tabText(tabs.currentIndex());
    }
};

TEST_F(FaultsPageTest, EachLineSetsItsOwnFault) {
    for (std::size_t index = 0; index < FaultCount; ++index) {
        Set(static_cast<Fault>(index), Always);
        for (std::size_t other = 0; other < FaultCount; ++other) {
            EXPECT_EQ(Board.TheFaults().Every(static_cast<Fault>(other)), other == index ? 1U : 0U);
        }
        Set(static_cast<Fault>(index), 0);
    }
}

TEST_F(FaultsPageTest, AlwaysIsSeenThroughTheLink) {
    Set(Fault::NoAnswer, Always);
    EXPECT_EQ(Read(CompanyID), 0xFF);
    Set(Fault::LinkFails, Always);
    EXPECT_THROW(Read(CompanyID), LinkError);
    EXPECT_EQ(TabText(), "Faults: 2 on");
    Click(Find<QAbstractButton>("AllOffCMD"));
    EXPECT_EQ(Read(CompanyID), 0x41);
    EXPECT_EQ(TabText(), "Faults");
}

TEST_F(FaultsPageTest, EveryNthStrikesAtThatOccasion) {
    EXPECT_FALSE(Nth(Fault::NoAnswer).isEnabled());
    Set(Fault::NoAnswer, Every);
    Nth(Fault::NoAnswer).selectAll();
    QTest::keyClicks(&Nth(Fault::NoAnswer), "3");
    QTest::keyClick(&Nth(Fault::NoAnswer), Qt::Key_Return);
    for (int transfer = 1; transfer <= 6; ++transfer) {
        EXPECT_EQ(Read(CompanyID), transfer % 3 == 0 ? 0xFF : 0x41) << transfer;
    }
}

} // namespace
} // namespace tqx
