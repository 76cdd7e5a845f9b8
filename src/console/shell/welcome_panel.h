#pragma once

#include <QWidget>

#include <array>

class QAction;
class QLabel;

namespace tqx {

/// One line of the welcome page: what a key of the toolbar does, and the key's place on the page.
struct HelpLine {
    const char* Key;
    const char* Text;
};

/// The lines of help in the order of their labels.
inline constexpr std::array<HelpLine, 9> HelpLines{{
    {"EraseEEPROM", "Erase the EEPROM"},
    {"RegAccess", "Get easy access to every register available on the TQX7716"},
    {"BlockReadWrite", "Do block reads and writes quickly with this tool."},
    {"ControlPanel1", "See the TQX7716 in operation without even reading the data sheet."},
    {"ReadWrite1",
     "A list of available registers grouped by function, that you can read and write to."},
    {"Go1", "Automatically startup the TQX7716 evaluation board."},
    {"GPIO", "Get easy access to the GPIO functionality of the TQX7716."},
    {"Save1", "Perform a full register dump to a text file."},
    {"About1", "Find out more about this software"},
}};

/// The page that the main window opens on: what the program is, and what each key does.
class WelcomePanel : public QWidget {
    Q_OBJECT

public:
    /// `keys`: the toolbar's actions in their order on the bar; each line of help carries its
    /// key's picture and starts it.
    explicit WelcomePanel(const QList<QAction*>& keys, QWidget* parent = nullptr);

    /// The text of lblVersion.
    void Version(const QString& text);

private:
    QLabel* m_version;
};

} // namespace tqx
