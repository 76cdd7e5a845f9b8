#include "control_centre/monitor_timers.h"

#include <QAbstractButton>

#include <chrono>

namespace tqx {
namespace {

using namespace std::chrono_literals;

void SetUp(QTimer& timer, const QString& name, std::chrono::milliseconds interval) {
    timer.setObjectName(name);
    timer.setInterval(interval);
}

/// A timer that runs already goes on with the interval that it is in.
void Enable(QTimer& timer) {
    if (!timer.isActive()) {
        timer.start();
    }
}

} // namespace

MonitorTimers::MonitorTimers(QAbstractButton& startStop, QObject* parent)
    : QObject(parent)
    , BargraphTimer(this)
    , GPIOTimer(this)
    , InterruptTimer(this)
    , m_startStop(startStop) {
    SetUp(BargraphTimer, QStringLiteral("BargraphTimer"), 5ms);
    SetUp(GPIOTimer, QStringLiteral("GPIOTimer"), 500ms);
    SetUp(InterruptTimer, QStringLiteral("InterruptTimer"), 500ms);
    BargraphTimer.setTimerType(Qt::PreciseTimer);
    m_startStop.setObjectName(QStringLiteral("VisStartCHK"));
    m_startStop.setCheckable(true);
    StopMonitorTimers();
    connect(&m_startStop, &QAbstractButton::clicked, this, &MonitorTimers::VisStartClicked);
}

void MonitorTimers::StartMonitorTimers() {
    for (QTimer* timer : {&BargraphTimer, &GPIOTimer, &InterruptTimer}) {
        Enable(*timer);
    }
    m_startStop.setText(QStringLiteral("Stop"));
    m_startStop.setChecked(true);
}

void MonitorTimers::StopMonitorTimers() {
    BargraphTimer.stop();
    GPIOTimer.stop();
    InterruptTimer.stop();
    m_startStop.setText(QStringLiteral("Start"));
    m_startStop.setChecked(false);
}

void MonitorTimers::VisStartClicked() {
    if (VisStart()) {
        StartMonitorTimers();
    } else {
        StopMonitorTimers();
    }
}

bool MonitorTimers::VisStart() const {
    return m_startStop.isChecked();
}

void MonitorTimers::OfferStop() {
    m_startStop.setText(QStringLiteral("Stop"));
    m_startStop.setEnabled(true);
}

} // namespace tqx
