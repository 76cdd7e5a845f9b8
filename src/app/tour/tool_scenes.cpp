#include "tour.h"

#include <console/main_form.h>

#include <QComboBox>
#include <QLabel>

namespace tqx {

void Tour::ShowToolWindows() {
    Press("RegAccess");
    QWidget& access = Window("EEPROMComFRM");
    Click(Find(access, "ReadAllCMD"));
    Shoot(access, "register-access");
    Click(Find(access, "AccessEEPROMCHK"));
    Click(Find(access, "ReadAllCMD"));
    Shoot(access, "register-access-eeprom");
    Click(Find(access, "CloseCMD"));
    WaitFor("the window counts itself out", [&] { return Main().EEPROMComFormCounter() == 0; });

    Press("GPIO");
    QWidget& gpio = Window("GPIOConfigFRM");
    Shoot(gpio, "gpio");
    Click(Find(gpio, "CloseCMD"));

    WithModal("EraseEEPROMFRM", [this](QWidget& erase) { Shoot(erase, "erase"); });
    Press("EraseEEPROM");
    ExpectModalDone("the erase window stood");

    WithModal("RegisterDumpFRM", [this](QWidget& dump) { Shoot(dump, "dump"); });
    Press("Save1");
    ExpectModalDone("the dump window stood");

    WithModal("frmAbout", [this](QWidget& about) { Shoot(about, "about"); });
    Press("About1");
    ExpectModalDone("the about box stood");
}

} // namespace tqx
