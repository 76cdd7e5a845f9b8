#include "tour.h"

#include <console/main_form.h>
#include <device/register_addresses.h>

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

constexpr std::uint8_t WriteProtectBit = 0x08;

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
        Show(Main(), "registers-" + tabs.tabText(tab).toLower());
    }
    Expect(Find<QLabel>(Main(), "current_reg_type_label").text() == "Configuration 1",
           "the register console names the register");

    Click(Find(Main(), "bit5"));
    Expect(m_board.TheChip().Read(reg::Config1) == 0x23, "a click flips a bit of the chip");
    Enter(Find(Main(), "HexTXT"), "3");
    Expect(m_board.TheChip().Read(reg::Config1) == 0x03, "an entry goes to the chip");
    Hold(Main(), "Timer3");
    Click(Find(Main(), "SSRibbon5"));
    Tick(Main(), "Timer3");
    Show(Main(), "registers-continuous");
}

void Tour::ShowBlockPanel() {
    Press("BlockReadWrite");
    Click(Find(Main(), "UsePECCHK"));
    Click(Find(Main(), "AccessEEPROMCHK"));
    QTest::keyClick(&Find<QComboBox>(Main(), "EEPROMHighByteCOMBO"), Qt::Key_Down); // 81h, erased
    Click(Find(Main(), "RandDataFillCMD"));
    Click(Find(Main(), "BlockWriteCMD"));
    Show(Main(), "blocks-write");
    Expect(Find<QLabel>(Main(), "PECStatusLBL").text() == "PEC was OK", "the write's PEC is good");
    Click(Find(Main(), "BlockReadCMD"));
    Expect(Find<QLabel>(Main(), "PECStatusLBL").text() == "PEC was OK", "the read's PEC is good");
    Show(Main(), "blocks-read");
    for (int column = 1; column <= 32; ++column) {
        Expect(Find<QLabel>(Main(), QStringLiteral("ReadDataLBL(%1)").arg(column)).text() ==
                   Find<QLineEdit>(Main(), QStringLiteral("BlockWriteTXT(%1)").arg(column)).text(),
               QStringLiteral("byte %1 of the block reads back").arg(column));
    }
    ShowRefusedBlocks();
}

void Tour::ShowRefusedBlocks() {
    m_board.TheFaults().Always(sim::Fault::WrongPEC);
    Click(Find(Main(), "BlockReadCMD"));
    m_board.TheFaults().AllOff();
    Expect(Find<QLabel>(Main(), "PECStatusLBL").text() == "PEC Failed", "a damaged PEC is told");
    Show(Main(), "blocks-pec-failed");

    m_board.TheChip().Write(reg::EEPROM3, WriteProtectBit);
    WithModal("MsgBoxFRM", [this](QWidget& box) { Show(box, "blocks-write-protected"); });
    Click(Find(Main(), "BlockWriteCMD"));
    ExpectModalDone("a write to a protected EEPROM is refused");
    m_board.TheChip().Write(reg::EEPROM3, 0);

    Click(Find(Main(), "UsePECCHK"));
    Enter(Find(Main(), "ByteCountTXT"), "5");
    Show(Main(), "blocks-five-bytes");
}

} // namespace tqx
