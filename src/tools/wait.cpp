#include "tools/wait.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <thread>

namespace tqx {

void Wait(float seconds) {
    using Clock = std::chrono::steady_clock;
    const auto length = std::chrono::duration<float>(std::max(seconds, 0.0F));
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(length);

    QEventLoop loop;
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.setSingleShot(true);
    QObject::connect(&alarm, &QTimer::timeout, &loop, &QEventLoop::quit);
    alarm.start(std::chrono::ceil<std::chrono::milliseconds>(length));
    loop.exec();

    std::this_thread::sleep_until(end);
}

} // namespace tqx
