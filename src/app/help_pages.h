#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <functional>

class QUrl;
class QWidget;

namespace tqx {

class SystemDialogs;

/// A window or a part of one, by its objectName, and its page of the handbook without the ending.
struct HelpPage {
    const char* Name;
    const char* Page;
};

/// The panels of the main window, of which one is on view: it decides the page wherever in the
/// window the focus is.
inline constexpr std::array<HelpPage, 4> PanelPages{{
    {"MainPanel", "main-window"},
    {"ReadWritePanel", "registers"},
    {"ControlCentrePanel", "control-centre"},
    {"BlockReadCRCPanel", "blocks"},
}};

/// The windows, and parts that have a page of their own while they have the focus.
inline constexpr std::array<HelpPage, 10> WindowPages{{
    {"InitForm", "wizard"},
    {"MainForm", "main-window"},
    {"MainStripChart", "strip-chart"},
    {"EEPROMComFRM", "register-access"},
    {"EraseEEPROMFRM", "erase"},
    {"GPIOConfigFRM", "gpio"},
    {"RegisterDumpFRM", "dump"},
    {"frmAbout", "about"},
    {"MsgBoxFRM", "troubleshooting"},
    {"SimulatedBoardFRM", "../simulated-board"},
}};

/// The page for the focus at `focused`: that of the innermost part, panel or window around it that
/// has one, those behind a dialog included, else "index".
QString PageOf(const QWidget& focused);

/// F1: opens the handbook at the page of the window in front.
///
/// It is an event filter of the application, so that the key works in every window, also while a
/// modal one shuts the others out.
class HelpPages : public QObject {
    Q_OBJECT

public:
    /// Hands a page to the program that shows it; false when there is none.
    using PageOpener = std::function<bool(const QUrl& page)>;

    /// `programFolder`: where the executable lies. The handbook stands beside it, in the installed
    /// tree as in the build tree: ../share/doc/tqx7716-console/handbook. `dialogs` must outlive
    /// this object.
    HelpPages(const QString& programFolder, SystemDialogs& dialogs, PageOpener open = OnDesktop());

    /// The desktop's own opener.
    static PageOpener OnDesktop();

    /// Opens the page for the focus at `focused`, or tells the user where it was looked for.
    void Show(QWidget& focused);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_folder;
    SystemDialogs& m_dialogs;
    PageOpener m_open;
};

} // namespace tqx
