#include "tour.h"

#include <console/main_form.h>

#include <QCheckBox>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

namespace tqx {
namespace {

constexpr std::array PictureOfTab{"simulator-voltages", "simulator-temperatures-fans",
                                  "simulator-pins",     "simulator-bus",
                                  "simulator-faults",   "simulator-trace"};

/// A click as it comes from outside, which a modal window keeps from the windows that it blocks.
void ClickFromOutside(QWidget& control) {
    QWidget& window = *control.window();
    const QPoint mark(control.height() / 2, control.height() / 2);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, control.mapTo(&window, mark));
}

} // namespace

void Tour::ShowSimulatedBoard() {
    QWidget& board = Window("SimulatedBoardFRM");
    auto& tabs = Find<QTabWidget>(board, "BoardTab");
    Expect(tabs.count() == static_cast<int>(PictureOfTab.size()), "each tab has its picture");
    tabs.tabBar()->setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    QTest::keyClick(tabs.tabBar(), Qt::Key_Left); // a page shows the board of when it comes up
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.tabBar()->setFocus();
        if (tab > 0) {
            QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
        }
        Show(board, PictureOfTab.at(static_cast<std::size_t>(tab)));
    }

    tabs.setCurrentWidget(&Find(board, "BusPage"));
    WithModal("frmAbout", [&](QWidget&) {
        ClickFromOutside(Find<QCheckBox>(board, "PluggedCHK"));
        Expect(!m_board.Plugged(), "the board's window goes on beside a modal one");
        ClickFromOutside(Find<QCheckBox>(board, "PluggedCHK"));
    });
    Press("About1");
    ExpectModalDone("the about box stood");
}

} // namespace tqx
