#pragma once

#include <QObject>

#include <array>

class QSocketNotifier;

namespace tqx {

/// Turns the process's end signals (SIGTERM, SIGINT, SIGHUP) into an event of the event loop, so
/// that the program ends in order: windows closed, long loops stopped, bus lines parked.
///
/// There is one at a time. While it lives the signals do not end the process by themselves; once it
/// is gone they do again.
class EndSignals : public QObject {
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    ~EndSignals() override;

Q_SIGNALS:
    void Received();

private:
    void Read();

    /// A pipe from the signal handler to the event loop: its read end and its write end.
    std::array<int, 2> m_pipe{-1, -1};
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace tqx
