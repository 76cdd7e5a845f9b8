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

MonitorTimers::MonitorTimers(QAbstractButton& visStart, QObject* parent)
    : QObject(parent)
    , BargraphTimer(this)
    , GPIOTimer(this)
    , InterruptTimer(this)
    , m_visStart(visStart) {
    SetUp(BargraphTimer, QStringLiteral("BargraphTimer"), 5ms);
    SetUp(GPIOTimer, QStringLiteral("GPIOTimer"), 500ms);
    SetUp(InterruptTimer, QStringLiteral("InterruptTimer"), 500ms);
    BargraphTimer.setTimerType(Qt::PreciseTimer);
    m_visStart.setObjectName(QStringLiteral("VisStartCHK"));
    m_visStart.setCheckable(true);
    StopMonitorTimers();
    connect(&m_visStart, &QAbstractButton::clicked, this, &MonitorTimers::VisStartClicked);
}

void MonitorTimers::StartMonitorTimers() {
    for (QTimer* timer : {&BargraphTimer, &GPIOTimer, &InterruptTimer}) {
        Enable(*timer);
    }
    m_visStart.setText(QStringLiteral("Stop"));
    m_visStart.setChecked(true);
}

void MonitorTimers::StopMonitorTimers() {
    BargraphTimer.stop();
    GPIOTimer.stop();
    InterruptTimer.stop();
    m_visStart.setText(QStringLiteral("Start"));
    m_visStart.setChecked(false);
}

void MonitorTimers::VisStartClicked() {
    if (VisStart()) {
        StartMonitorTimers();
    } else {
        StopMonitorTimers();
    }
}

bool MonitorTimers::VisStart() const {
    return m_visStart.isChecked();
}

void MonitorTimers::OfferStop() {
    m_visStart.setText(QStringLiteral("Stop"));
    m_visStart.setEnabled(true);
}

} // namespace tqx
