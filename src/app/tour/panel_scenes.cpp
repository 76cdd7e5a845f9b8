#include "tour.h"

#include <console/main_form.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace tqx {
namespace {

/// A register to select on each tab of the register console, in tab order.
constexpr std::array<int, 7> RegisterOfTab{0x16, 0x08, 0x30, 0x1F, 0x2E, 0x02, 0x00};

} // namespace

void Tour::ShowRegisterConsole() {
    Press("ReadWrite1");
    auto& tabs = Find<QTabWidget>(Main(), "RWTAB");
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.tabBar()->setFocus();
        if (tab > 0) {
            QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
        }
        const int row = RegisterOfTab.at(static_cast<std::size_t>(tab));
        Click(Find(Main(), QStringLiteral("read_writedisplaytext(%1)").arg(row)));
        Shoot(Main(), "registers-" + tabs.tabText(tab).toLower());
    }
    Expect(Find<QLabel>(Main(), "current_reg_type_label").text() == "Configuration 1",
           "the register console names the register");
}

void Tour::ShowBlockPanel() {
    Press("BlockReadWrite");
    Click(Find(Main(), "UsePECCHK"));
    Click(Find(Main(), "AccessEEPROMCHK"));
    QTest::keyClick(&Find<QComboBox>(Main(), "EEPROMHighByteCOMBO"), Qt::Key_Down); // 81h, erased
    Click(Find(Main(), "RandDataFillCMD"));
    Click(Find(Main(), "BlockWriteCMD"));
    Shoot(Main(), "blocks-write");
    Expect(Find<QLabel>(Main(), "PECStatusLBL").text() == "PEC was OK", "the write's PEC is good");
    Click(Find(Main(), "BlockReadCMD"));
    Expect(Find<QLabel>(Main(), "PECStatusLBL").text() == "PEC was OK", "the read's PEC is good");
    Shoot(Main(), "blocks-read");
    for (int column = 1; column <= 32; ++column) {
        Expect(Find<QLabel>(Main(), QStringLiteral("ReadDataLBL(%1)").arg(column)).text() ==
                   Find<QLineEdit>(Main(), QStringLiteral("BlockWriteTXT(%1)").arg(column)).text(),
               QStringLiteral("byte %1 of the block reads back").arg(column));
    }
}

} // namespace tqx
