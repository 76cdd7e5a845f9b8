#pragma once

#include <QTimer>
#include <QWidget>

class QTabWidget;

namespace tqx {

class BoardPage;
class FaultsPage;

namespace sim {
class SimulatedBoard;
}

/// The simulated board's own window: what a bench would give around the chip, and a trace of the
/// bus beneath the console.
///
/// It works on the board itself, never over the link, and shows how it stands a few times a second
/// while it is on view. Closing it only puts it away; F12 in any window of the program brings it
/// back.
class BoardWindow : public QWidget {
    Q_OBJECT

public:
    /// The board must outlive the window.
    explicit BoardWindow(sim::SimulatedBoard& board);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeBanner();
    void MakePages(sim::SimulatedBoard& board);
    void AddPage(BoardPage* page, const QString& name, const QString& caption);
    void Refresh();
    void ShowFaultCount();
    void BringToFront();

    QTimer m_refresh;
    QTabWidget* m_tabs = nullptr;
    FaultsPage* m_faults = nullptr;
};

} // namespace tqx
