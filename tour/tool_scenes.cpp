#include "tour.h"

#include <console/main_form.h>
#include <controls/percent_bar.h>
#include <device/register_addresses.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>

namespace tqx {
namespace {

constexpr int Rows = 16;                  ///< of the register access window
constexpr std::uint16_t Block9F = 0x1F00; ///< where it begins in the EEPROM

QString Member(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(name).arg(index);
}

} // namespace

void Tour::ShowToolWindows() {
    ShowRegisterAccess();
    ShowGPIOPanel();
    ShowErase();
    ShowDump();
    WithModal("frmAbout", [this](QWidget& about) { Show(about, "about"); });
    Press("About1");
    ExpectModalDone("the about box stood");
}

void Tour::ShowRegisterAccess() {
    Press("RegAccess");
    QWidget& access = Window("EEPROMComFRM");
    Click(Find(access, "ReadAllCMD"));
    Show(access, "register-access");

    Enter(Find(access, "AddrptrTXT(0)"), "F8");
    Click(Find(access, "ADDPTRFillCMD"));
    Hold(access, "AutoReadTimer");
    Click(Find(access, "AutoReadCHK"));
    for (int row = 0; row < Rows; ++row) {
        Tick(access, "AutoReadTimer");
    }
    Expect(Find<QLabel>(access, "ReadLBL(8)").text() == "---",
           "AutoRead passes the rows by whose address is no byte");
    Show(access, "register-access-autoread");
    Click(Find(access, "AutoReadCHK"));

    Enter(Find(access, "AddrptrTXT(0)"), "0");
    Click(Find(access, "ADDPTRFillCMD"));
    ShowEEPROMAccess(access);
    Click(Find(access, "CloseCMD"));
    WaitFor("the window counts itself out", [&] { return Main().EEPROMComFormCounter() == 0; });
}

void Tour::ShowEEPROMAccess(QWidget& access) {
    Click(Find(access, "AccessEEPROMCHK"));
    Click(Find(access, "EraseEEPROMCHK"));
    QTest::keyClick(&Find(access, "EEPROMHighByteCOMBO"), Qt::Key_End);
    Click(Find(access, "RandomFillCMD"));
    Meanwhile(Find<QProgressBar>(access, "RWAllProgress"), Rows / 2 + 1,
              [&] { Show(access, "register-access-writing"); });
    Click(Find(access, "WriteALLCMD"));
    ExpectMeanwhileDone("Write All shows its progress");

    Click(Find(access, "ReadAllCMD"));
    for (int row = 0; row < Rows; ++row) {
        Expect(Find<QLabel>(access, Member("ReadLBL", row)).text() ==
                   Find<QLineEdit>(access, Member("WriteDataTXT", row)).text(),
               QStringLiteral("row %1 reads back").arg(row));
    }
    Show(access, "register-access-eeprom");
}

void Tour::ShowGPIOPanel() {
    Press("GPIO");
    QWidget& gpio = Window("GPIOConfigFRM");
    Show(gpio, "gpio");
    for (int line = 0; line < 4; ++line) {
        QTest::keyClick(&Find(gpio, Member("EnabledCOMBO", line)), Qt::Key_Up);
    }
    QTest::keyClick(&Find(gpio, "EnabledCOMBO(8)"), Qt::Key_Down);
    QTest::keyClick(&Find(gpio, "DirectionCombo(1)"), Qt::Key_Up);
    QTest::keyClick(&Find(gpio, "Polarity(1)"), Qt::Key_Up);
    Expect(m_board.TheChip().Read(reg::Config2) == 0x0F, "four fan pins are GPIO lines");
    Expect((m_board.TheChip().Read(reg::GPIOConfig1) & 0x0C) == 0x0C, "line 1 is an output, high");
    Show(gpio, "gpio-lines");
    Click(Find(gpio, "CloseCMD"));
}

void Tour::ShowErase() {
    WithModal("EraseEEPROMFRM", [this](QWidget& erase) {
        Show(erase, "erase");
        QTest::keyClick(&Find(erase, "EEPROMHighByteCOMBO"), Qt::Key_End);
        Expect(m_board.TheChip().ReadEEPROM(Block9F) != 0xFF, "block 9F holds bytes");
        Click(Find(erase, "ErasePageCMD(0)"));
        Expect(m_board.TheChip().ReadEEPROM(Block9F) == 0xFF, "its first page is erased");

        auto& progress = Find<QProgressBar>(erase, "TotalProgress");
        Meanwhile(progress, 2, [&] {
            Show(erase, "erase-running");
            Click(Find(erase, "StopEraseCMD"));
        });
        Click(Find(erase, "EraseAllCMD"));
        ExpectMeanwhileDone("Erase All shows its progress");
        Expect(progress.value() == 3, "a stopped block still counts");
        Show(erase, "erase-stopped");
    });
    Press("EraseEEPROM");
    ExpectModalDone("the erase window stood");
}

void Tour::ShowDump() {
    WithModal("RegisterDumpFRM", [this](QWidget& dump) {
        Show(dump, "dump");
        Click(Find(dump, "BrowseCMD"));
        auto& progress = Find<PercentBar>(dump, "ProgressBar1");
        Meanwhile(progress, progress.maximum() / 3, [&] { Show(dump, "dump-running"); });
        Click(Find(dump, "DumpCMD"));
        ExpectMeanwhileDone("a dump shows its progress");
        Expect(QFile(TourDialogs::DumpFile()).size() > 0, "the dump is in its file");
        Show(dump, "dump-done");
    });
    Press("Save1");
    ExpectModalDone("the dump window stood");
}

} // namespace tqx
