#include "app/application.h"

#include <controls/look.h>

namespace tqx {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    // No display name: the desktop would add it to the caption of every window.
    // The last window's close is not the end: the wizard hides when the user skips it.
    setQuitOnLastWindowClosed(false);
    look::Apply(*this);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const LinkError& error) {
        if (!OnLinkError) {
            throw;
        }
        OnLinkError(error);
        return true;
    }
}

} // namespace tqx
