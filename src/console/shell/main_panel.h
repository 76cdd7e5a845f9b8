#pragma once

#include <QWidget>

class QAction;

namespace tqx {

/// The page that the main window opens on: what the program is, and what each button of the toolbar
/// does.
class MainPanel : public QWidget {
    Q_OBJECT

public:
    /// `actions`: the toolbar's, in the order of ToolbarKeys; each line of help carries the picture
    /// of its action and starts it. `version` is the text of lblVersion.
    MainPanel(const QList<QAction*>& actions, const QString& version, QWidget* parent = nullptr);
};

} // namespace tqx
