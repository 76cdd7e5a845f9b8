#include "app/board_program.h"

#include <console/main_form.h>
#include <controls/linear_gauge.h>
#include <controls/row_label.h>
#include <device/channel_table.h>
#include <search/init_form.h>

#include <QApplication>

#include <gtest/gtest.h>

namespace tqx {
namespace {

constexpr std::uint8_t High12V = 0x46;
constexpr int MostTabs = 100;

/// The whole way from the wizard to a limit in the chip, by keys alone: each goes to whatever has
/// the focus.
class KeyboardRunTest : public test::BoardProgram {
protected:
    /// Presses Tab until the control of that name has the focus.
    static void TabTo(const QString& name) {
        for (int tabs = 0; tabs < MostTabs; ++tabs) {
            if (QApplication::focusWidget()->objectName() == name) {
                return;
            }
            Key(Qt::Key_Tab);
        }
        FAIL() << "Tab never comes to " << name.toStdString();
    }

    std::uint8_t HighLimit() { return board.TheChip().Read(High12V); }

    void WizardByKeys() {
        program.Start();
        InitForm& wizard = *program.Wizard();
        Activate(wizard);
        Key(Qt::Key_Return);
        EXPECT_EQ(wizard.CurrentPage(), 2);
        Key(Qt::Key_N, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return wizard.CurrentPage() == 4; }));
        Key(Qt::Key_Return);
        ASSERT_NE(program.Main(), nullptr);
        ASSERT_TRUE(program.Main()->isVisible());
        EXPECT_FALSE(wizard.isVisible());
        Activate(*program.Main());
    }
};

TEST_F(KeyboardRunTest, FromTheWizardToALimitInTheChip) {
    WizardByKeys();
    MainForm& main = *program.Main();
    QTest::keyClick(&main, Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(Find(main, "ControlCentrePanel").isVisible());
    main.StopMonitorTimers();

    QTest::keyClick(&main, Qt::Key_Tab);
    TabTo("qt_tabwidget_tabbar");
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    Key(Qt::Key_Tab);
    auto& supply = Find<RowLabel>(main, "visualdisplaytext(18)");
    for (int rows = 0; rows < RowCount && !supply.hasFocus(); ++rows) {
        Key(Qt::Key_Down);
    }
    ASSERT_TRUE(supply.hasFocus());
    Key(Qt::Key_Return);
    EXPECT_TRUE(supply.IsSelected());

    TabTo("limits_gauge");
    Key(Qt::Key_Tab); // from the low handle to the high one
    const std::uint8_t before = HighLimit();
    auto& gauge = Find<LinearGauge>(main, "limits_gauge");
    ASSERT_TRUE(gauge.hasFocus());
    QTest::keyPress(&gauge, Qt::Key_PageDown);
    EXPECT_EQ(HighLimit(), before) << "the hand has not settled yet";
    QTest::keyRelease(&gauge, Qt::Key_PageDown);
    EXPECT_LT(HighLimit(), before);
    EXPECT_GT(HighLimit(), 0);
}

} // namespace
} // namespace tqx
