#include "help_pages.h"

#include <controls/system_dialogs.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QUrl>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tqx {
namespace {

constexpr QLatin1String HandbookFolder("../share/doc/tqx7716-console/handbook");

/// The page of the panel of `window` that is on view; null when it has none.
const char* PageOfPanel(const QWidget& window) {
    const auto* const entry = std::ranges::find_if(PanelPages, [&](const HelpPage& each) {
        const auto* const panel = window.findChild<QWidget*>(each.Name);
        return panel != nullptr && !panel->isHidden();
    });
    return entry == PanelPages.end() ? nullptr : entry->Page;
}

const char* PageNamed(const QString& name) {
    const auto* const entry = std::ranges::find_if(
        WindowPages, [&](const HelpPage& each) { return name == QLatin1String(each.Name); });
    return entry == WindowPages.end() ? nullptr : entry->Page;
}

} // namespace

QString PageOf(const QWidget& focused) {
    for (const QWidget* widget = &focused; widget != nullptr; widget = widget->parentWidget()) {
        const char* page = widget->isWindow() ? PageOfPanel(*widget) : nullptr;
        page = page != nullptr ? page : PageNamed(widget->objectName());
        if (page != nullptr) {
            return QString::fromLatin1(page);
        }
    }
    return QStringLiteral("index");
}

HelpPages::HelpPages(const QString& programFolder, SystemDialogs& dialogs, PageOpener open)
    : m_folder(QDir::cleanPath(QDir(programFolder).filePath(HandbookFolder)))
    , m_dialogs(dialogs)
    , m_open(std::move(open)) {}

HelpPages::PageOpener HelpPages::OnDesktop() {
    return [](const QUrl& page) { return QDesktopServices::openUrl(page); };
}

void HelpPages::Show(QWidget& focused) {
    const QString file = QDir(m_folder).filePath(PageOf(focused) + QStringLiteral(".html"));
    QString trouble;
    if (!QFileInfo(file).isFile()) {
        trouble =
            "The program looked for %1. It is installed with the program, or made by the build.";
    } else if (!m_open(QUrl::fromLocalFile(file))) {
        trouble = "The desktop has no program to show the file %1. Install a "
                  "web browser.";
    }
    if (!trouble.isEmpty()) {
        m_dialogs.Message(focused.window(), SystemDialogs::Icon::Exclamation,
                          "The handbook could not be opened", trouble.arg(file));
    }
}

bool HelpPages::eventFilter(QObject* watched, QEvent* event) {
    // The key comes to the window's QWindow first, and then to the widget with the focus.
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return false;
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) {
        return false;
    }
    if (!key->isAutoRepeat()) {
        Show(static_cast<QWidget&>(*watched));
    }
    return true;
}

} // namespace tqx
