#include "tour.h"

#include <console/main_form.h>
#include <search/init_form.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>

namespace tqx {

void Tour::ShowWizard() {
    m_program.Start();
    InitForm& wizard = *m_program.Wizard();
    WaitFor("the wizard is on view", [&] { return wizard.isVisible(); });
    Show(wizard, "wizard-welcome");

    Click(Find(wizard, "NextCMD"));
    Expect(wizard.CurrentPage() == 2, "Next leads to the choice of the medium");
    QTest::keyClick(&Find(wizard, "SMBusCheck"), Qt::Key_Space);
    Show(wizard, "wizard-media");

    Click(Find(wizard, "NextCMD"));
    Expect(wizard.CurrentPage() == 4, "the search ends on the results");
    auto& list = Find<QListWidget>(wizard, "SearchResultsLIST");
    Expect(list.count() == 2, "the chip is found on both media");
    Expect(list.item(0)->text().endsWith("Printer 1"), "the first row is the printer port's");
    Show(wizard, "wizard-results");

    Click(Find(wizard, "FinishCMD"));
    WaitFor("Finish shows the main window", [&] { return Main().isVisible(); });
    Expect(m_program.TheBench().Bus.BusCell.SlaveAddress == 0x58, "the chip is chosen");
}

void Tour::ShowWelcome() {
    Main().resize(1120, 720);
    for (const char* timer : TimersOfMonitor) {
        Hold(Main(), timer);
    }
    Expect(Find(Main(), "MainPanel").isVisible(), "the welcome page is on view");
    Show(Main(), "welcome");
}

} // namespace tqx
