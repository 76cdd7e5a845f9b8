// Every window of the program, as someone meets it who sees no screen or uses no mouse.

#include "about/about_frm.h"
#include "app/board_program.h"
#include "app/control_walk.h"
#include "eeprom_com/eeprom_com_frm.h"
#include "erase_eeprom/erase_eeprom_frm.h"
#include "gpio_config/gpio_config_frm.h"
#include "help_pages.h"
#include "register_dump/register_dump_frm.h"
#include "shell/msg_box_frm.h"

#include <simulator/board_window.h>
#include <tools/sys_info.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QTabWidget>

#include <gtest/gtest.h>
#include <string>

namespace tqx {
namespace {

class WindowsTest : public test::BoardProgram {
protected:
    MessageDoor door = [](auto&&...) { return std::uint8_t{1}; };
    DesktopSysInfoHost host;

    static void Walk(QWidget& window, const std::string& view) {
        SCOPED_TRACE(view);
        window.show();
        Activate(window);
        EXPECT_NE(PageOf(window), "index") << "F1 opens its page of the handbook";
        test::ExpectNamesAndRoles(window);
        test::ExpectNoShortcutTwice(window);
        test::ExpectTabReachesEverything(window);
    }

    static void Click(QWidget& window, const QString& name) {
        Find<QAbstractButton>(window, name).click();
    }

    /// The main window with the chip chosen.
    MainForm& Main() {
        program.Start();
        InitForm& wizard = *program.Wizard();
        for (const char* button : {"NextCMD", "NextCMD", "FinishCMD"}) {
            Click(wizard, button);
        }
        program.Main()->activateWindow();
        return *program.Main();
    }
};

TEST_F(WindowsTest, EveryPageOfTheWizardIsForEveryHand) {
    program.Start();
    InitForm& wizard = *program.Wizard();
    Walk(wizard, "welcome");
    Click(wizard, "NextCMD");
    Walk(wizard, "media");
    Click(wizard, "NextCMD");
    Walk(wizard, "results");
}

TEST_F(WindowsTest, EveryPanelOfTheMainWindowIsForEveryHand) {
    MainForm& main = Main();
    Walk(main, "welcome page");
    Click(main, "ReadWrite1");
    auto& registers = Find<QTabWidget>(main, "RWTAB");
    for (int tab = 0; tab < registers.count(); ++tab) {
        registers.setCurrentIndex(tab);
        Walk(main, "registers, tab " + std::to_string(tab));
    }
    Click(main, "ControlPanel1");
    auto& channels = Find<QTabWidget>(main, "BargraphTab");
    for (int tab = 0; tab < channels.count(); ++tab) {
        channels.setCurrentIndex(tab);
        Walk(main, "control centre, tab " + std::to_string(tab));
    }
    Click(main, "BlockReadWrite");
    Walk(main, "blocks");
    Click(main, "AccessEEPROMCHK");
    Walk(main, "blocks of the EEPROM");
}

TEST_F(WindowsTest, TheMessageBoxIsForEveryHand) {
    MsgBoxFRM box;
    box.SetUp("Information", "Go on?", false);
    Walk(box, "a question");
    box.SetUp("Information", "So it is.", true);
    Walk(box, "a notice");
}

TEST_F(WindowsTest, EveryToolWindowIsForEveryHand) {
    Main();
    Bench& bench = program.TheBench();
    const Waiter noWait = [](float) {};
    EEPROMComFRM com(bench, door, noWait, "Register Access 1");
    Walk(com, "register access");
    Click(com, "AccessEEPROMCHK");
    Walk(com, "EEPROM access");
    EraseEEPROMFRM erase(bench, door, noWait);
    Walk(erase, "erase");
    GPIOConfigFRM gpio(bench);
    Walk(gpio, "GPIO");
    RegisterDumpFRM dump(bench, door, dialogs);
    Walk(dump, "dump");
    AboutFRM about(door, host);
    Walk(about, "about");
}

TEST_F(WindowsTest, TheSimulatedBoardsWindowIsForEveryHand) {
    BoardWindow window(board);
    auto& tabs = Find<QTabWidget>(window, "BoardTab");
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        Walk(window, tabs.tabText(tab).toStdString());
    }
}

TEST_F(WindowsTest, ABitTellsWhetherItIsSet) {
    MainForm& main = Main();
    Click(main, "ReadWrite1");
    QTest::mouseClick(&Find(main, "read_writedisplaytext(0)"), Qt::LeftButton);
    auto& bit = Find(main, "bit0");
    const QAccessibleInterface& face = *QAccessible::queryAccessibleInterface(&bit);
    const bool before = face.state().checked;
    QTest::mouseClick(&bit, Qt::LeftButton);
    EXPECT_EQ(face.role(), QAccessible::CheckBox);
    EXPECT_TRUE(face.state().checkable);
    EXPECT_NE(face.state().checked, before);
}

} // namespace
} // namespace tqx
