#include "let_go_at_exit.h"

#include <QCoreApplication>
#include <QThread>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <utility>

namespace tqx {
namespace {

/// How long another thread that is about to end the process waits for the program's own, which may
/// be in the middle of a transfer.
constexpr std::chrono::seconds Patience{2};

LinkRoot* theLink = nullptr;
QtMessageHandler printMessage = nullptr;

/// Runs on the stack of whoever ends the process, perhaps in the middle of a transfer that waits
/// for the user. It never goes on, so the link may go from under it.
void LetGo() {
    if (LinkRoot* const link = std::exchange(theLink, nullptr)) {
        link->LetGo();
    }
}

/// On Wayland Qt leaves by `_exit`, from any of its threads, and no handler of exit hears of that.
/// What it says right ahead is all that tells. Where it would connect anew the link is left alone.
void HearLastWords(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    printMessage(type, context, message);
    if (!message.startsWith(QLatin1String("The Wayland connection ")) ||
        qEnvironmentVariableIsSet("QT_WAYLAND_RECONNECT") || qApp == nullptr) {
        return;
    }
    if (QThread::currentThread() == qApp->thread()) {
        LetGo();
        return;
    }
    const auto end = [] {
        LetGo();
        std::_Exit(EXIT_FAILURE); // as Qt is about to; the event loop must not make a new link
    };
    QMetaObject::invokeMethod(qApp, end, Qt::QueuedConnection);
    std::this_thread::sleep_for(Patience);
}

} // namespace

LetGoAtExit::LetGoAtExit(LinkRoot& link) {
    // A handler cannot be taken back; it finds nothing to do once this object has gone. Without one
    // the kernel still lets the port go, with the lines as they are.
    [[maybe_unused]] static const int registered = std::atexit(LetGo);
    theLink = &link;
    // What prints is known before any thread may come in: Qt's own have begun already.
    printMessage = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(HearLastWords);
}

LetGoAtExit::~LetGoAtExit() {
    qInstallMessageHandler(printMessage);
    theLink = nullptr;
}

} // namespace tqx
