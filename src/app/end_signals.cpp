#include "end_signals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tqx {
namespace {

constexpr std::array Signals{SIGTERM, SIGINT, SIGHUP};

/// The write end of the pipe, for the handler, which may only touch such a thing and call write.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void TellOfSignal(int /*number*/) {
    const char byte = 0;
    // A full pipe has told of the end already.
    [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
}

} // namespace

EndSignals::EndSignals(QObject* parent)
    : QObject(parent) {
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals then end the process at once, as without this
    }
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &EndSignals::Read);
    writeEnd = m_pipe[1];
    for (const int number : Signals) {
        std::signal(number, TellOfSignal);
    }
}

EndSignals::~EndSignals() {
    if (m_notifier == nullptr) {
        return;
    }
    for (const int number : Signals) {
        std::signal(number, SIG_DFL);
    }
    writeEnd = -1;
    close(m_pipe[0]);
    close(m_pipe[1]);
}

void EndSignals::Read() {
    std::array<char, 64> bytes{};
    while (read(m_pipe[0], bytes.data(), bytes.size()) > 0) {
    }
    Q_EMIT Received();
}

} // namespace tqx
