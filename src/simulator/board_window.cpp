#include "simulator/board_window.h"

#include "bus_page.h"
#include "faults_page.h"
#include "inputs_page.h"
#include "pins_page.h"
#include "trace_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <simulated/simulated_board.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tqx {
namespace {

constexpr int RefreshInterval = 250; // ms
constexpr int BackKey = Qt::Key_F12;

} // namespace

BoardWindow::BoardWindow(sim::SimulatedBoard& board) {
    setObjectName("SimulatedBoardFRM");
    setWindowTitle("Simulated board");
    setAttribute(Qt::WA_QuitOnClose, false);
    MakePages(board);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * look::Grid, 2 * look::Grid, 2 * look::Grid, 2 * look::Grid);
    layout->setSpacing(2 * look::Grid);
    layout->addWidget(MakeBanner());
    layout->addWidget(m_tabs, 1);
    resize(sizeHint()); // the whole of it, where a first show would take two thirds of the screen
    m_refresh.setInterval(RefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &BoardWindow::Refresh);
    connect(m_tabs, &QTabWidget::currentChanged, this, &BoardWindow::Refresh);
    qApp->installEventFilter(this);
}

QWidget* BoardWindow::MakeBanner() {
    auto* banner = new QWidget;
    auto* layout = new QVBoxLayout(banner);
    layout->setContentsMargins(look::Grid, 0, look::Grid, 0);
    layout->setSpacing(0);
    auto* heading = new QLabel("Simulated board");
    heading->setObjectName("BannerLBL");
    heading->setFont(look::WordsFont(look::Size::Large, look::Strong));
    layout->addWidget(heading);
    layout->addWidget(
        kit::SmallPrint({}, "The chip is simulated: it, its bus and what it measures are a "
                            "model, which is set here. F12 brings this window back."));
    return banner;
}

void BoardWindow::MakePages(sim::SimulatedBoard& board) {
    m_tabs = new QTabWidget;
    m_tabs->setObjectName("BoardTab");
    m_tabs->setAccessibleName("Parts of the simulated board");
    AddPage(new InputsPage(board, {sim::InputKind::Voltage}), "VoltagesPage", "Voltages");
    AddPage(new InputsPage(board, {sim::InputKind::Temperature, sim::InputKind::Fan}), "TempsPage",
            "Temps, fans");
    AddPage(new PinsPage(board), "PinsPage", "Pins");
    AddPage(new BusPage(board), "BusPage", "Bus");
    AddPage(m_faults = new FaultsPage(board), "FaultsPage", "Faults");
    AddPage(new TracePage(board), "TracePage", "Trace");
    connect(m_faults, &FaultsPage::Changed, this, &BoardWindow::ShowFaultCount);
    ShowFaultCount();
}

void BoardWindow::AddPage(BoardPage* page, const QString& name, const QString& caption) {
    page->setObjectName(name);
    m_tabs->addTab(page, caption);
}

/// Says on the tab that faults are on, so that none is forgotten.
void BoardWindow::ShowFaultCount() {
    const int on = m_faults->CountOn();
    m_tabs->setTabText(m_tabs->indexOf(m_faults),
                       on == 0 ? "Faults" : QStringLiteral("Faults: %1 on").arg(on));
}

void BoardWindow::Refresh() {
    if (isVisible() && !isMinimized()) {
        static_cast<BoardPage*>(m_tabs->currentWidget())->Refresh();
    }
}

void BoardWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Refresh();
    m_refresh.start();
}

void BoardWindow::hideEvent(QHideEvent* event) {
    m_refresh.stop();
    QWidget::hideEvent(event);
}

void BoardWindow::keyPressEvent(QKeyEvent* event) {
    if (!kit::PressFocusedButton(*this, *event)) {
        QWidget::keyPressEvent(event);
    }
}

bool BoardWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == BackKey) {
        BringToFront();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void BoardWindow::BringToFront() {
    showNormal();
    raise();
    activateWindow();
}

} // namespace tqx
