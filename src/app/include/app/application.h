#pragma once

#include <link/link_error.h>

#include <QApplication>

#include <functional>

namespace tqx {

/// The top of the application: the one place where a failed link call ends.
///
/// A LinkError passes through transfers and handlers untouched up to the event that started them;
/// it is caught here, handed to OnLinkError, and the program goes on.
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    /// Told of each LinkError, on the user-interface thread, outside the handler that failed.
    std::function<void(const LinkError&)> OnLinkError;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace tqx
