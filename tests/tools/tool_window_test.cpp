#include "tool_window.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <stdexcept>

namespace tqx {
namespace {

class LongWindow : public ToolWindow {
public:
    LongWindow()
        : ToolWindow("LongWindow", "Long") {}

    void Handler(const std::function<void()>& inTheMiddle) {
        const Yielding yielding(*this);
        inTheMiddle();
    }

    int AskedToStop = 0;

protected:
    void AskToStop() override { ++AskedToStop; }
};

class ToolWindowTest : public testing::Test {
protected:
    LongWindow window;
    QSignalSpy closed{&window, &ToolWindow::Closed};
    QSignalSpy unloaded{&window, &ToolWindow::Unloaded};
};

TEST_F(ToolWindowTest, UnloadsAtOnceWhenNothingIsUnderWay) {
    window.show();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isHidden());
    window.close();
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_EQ(window.AskedToStop, 1);
}

TEST_F(ToolWindowTest, EnterPressesTheButtonWithTheFocusElseTheDefaultOne) {
    auto* common = new QPushButton(&window);
    auto* rare = new QPushButton(&window);
    common->setDefault(true);
    rare->setAutoDefault(false);
    const QSignalSpy commonClicks(common, &QPushButton::clicked);
    const QSignalSpy rareClicks(rare, &QPushButton::clicked);
    window.show();
    rare->setFocus();
    QTest::keyClick(rare, Qt::Key_Return);
    EXPECT_EQ(rareClicks.count(), 1);
    EXPECT_EQ(commonClicks.count(), 0);
    rare->clearFocus();
    QTest::keyClick(&window, Qt::Key_Enter);
    EXPECT_EQ(rareClicks.count(), 1);
    EXPECT_EQ(commonClicks.count(), 1);
}

TEST_F(ToolWindowTest, UnloadsOnlyWhenTheLastHandlerHasUnwound) {
    window.show();
    window.Handler([&] {
        window.Handler([&] {
            window.close();
            EXPECT_TRUE(window.isHidden());
            EXPECT_EQ(closed.count(), 1);
        });
        EXPECT_EQ(unloaded.count(), 0);
        EXPECT_FALSE(window.CanBeDestroyed());
    });
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_TRUE(window.CanBeDestroyed());
}

TEST_F(ToolWindowTest, AFailedHandlerUnloadsAsWell) {
    window.show();
    EXPECT_THROW(window.Handler([&] {
        window.close();
        throw std::runtime_error("failed");
    }),
                 std::runtime_error);
    EXPECT_EQ(unloaded.count(), 1);
}

} // namespace
} // namespace tqx
