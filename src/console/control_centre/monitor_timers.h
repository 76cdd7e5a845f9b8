#pragma once

#include <QObject>
#include <QTimer>

class QAbstractButton;

namespace tqx {

/// The three timers of the monitor, which run or stand together, and `VisStartCHK`, which shows
/// and switches them.
class MonitorTimers : public QObject {
    Q_OBJECT

public:
    /// `startStop` is a checkable button; it becomes `VisStartCHK`.
    MonitorTimers(QAbstractButton& startStop, QObject* parent);

    QTimer BargraphTimer;
    QTimer GPIOTimer;
    QTimer InterruptTimer;

    void StartMonitorTimers();
    void StopMonitorTimers();

    /// What a click on VisStartCHK does once it has its new value.
    void VisStartClicked();

    /// VisStartCHK has the value 1.
    bool VisStart() const;
    /// The button as it stands while the monitor runs, ahead of a start.
    void OfferStop();

private:
    QAbstractButton& m_startStop;
};

} // namespace tqx
