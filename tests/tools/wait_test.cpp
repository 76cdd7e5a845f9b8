#include <tools/wait.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

namespace tqx {
namespace {

TEST(WaitTest, ServesTimersForItsWholeLength) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(5);
    QElapsedTimer clock;
    clock.start();
    Wait(0.05F);
    EXPECT_GE(clock.elapsed(), 50);
    EXPECT_GE(ticks, 3);
}

} // namespace
} // namespace tqx
