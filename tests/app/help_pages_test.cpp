#include "app/board_program.h"

#include <app/help_pages.h>
#include <console/msg_box_frm.h>
#include <tools/eeprom_com_frm.h>
#include <tools/erase_eeprom_frm.h>
#include <tools/frm_about.h>
#include <tools/gpio_config_frm.h>
#include <tools/register_dump_frm.h>
#include <tools/sys_info.h>
#include <tools/tools.h>

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

const MessageDoor NoDoor = [](const QString&, const QString&, std::uint8_t) {
    return std::uint8_t{0};
};

bool InHandbook(const QString& page) {
    return QFile::exists(QStringLiteral(TQX_SOURCE_DIR "/docs/handbook/%1.md").arg(page));
}

/// The main window on a simulated board, and an installed tree in which pages can be put.
class HelpPagesTest : public test::BoardProgram {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir(tree.path()).mkpath(programs));
        ASSERT_TRUE(QDir(tree.path()).mkpath(handbook));
        qApp->installEventFilter(&help);
    }

    void Install(const QString& page) {
        QFile file(tree.filePath(handbook + '/' + page + ".html"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    void PressToolbar(const QString& key) { main.findChild<QAction*>(key)->trigger(); }

    const QString programs = "usr/bin";
    const QString handbook = "usr/share/doc/tqx7716-console/handbook";
    QTemporaryDir tree;
    bool opens = true;
    std::vector<std::string> opened;
    HelpPages help{tree.filePath(programs), dialogs, [this](const QUrl& page) {
                       opened.push_back(page.toLocalFile().toStdString());
                       return opens;
                   }};
    Tools tools{dialogs};
    MainForm main{program.TheBench(), tools};
};

TEST_F(HelpPagesTest, EveryWindowHasAPageOfTheHandbook) {
    const Waiter noWait = [](float) {};
    DesktopSysInfoHost host;
    Bench& bench = program.TheBench();
    const GPIOConfigFRM gpio(bench);
    const EEPROMComFRM access(bench, NoDoor, noWait, "Register Access 1");
    const EraseEEPROMFRM erase(bench, NoDoor, noWait);
    const RegisterDumpFRM dump(bench, NoDoor, dialogs);
    const frmAbout about(NoDoor, host);
    const MsgBoxFRM box(&main);
    const std::vector<std::pair<const QWidget*, QString>> windows{{program.Wizard(), "wizard"},
                                                                  {&access, "register-access"},
                                                                  {&erase, "erase"},
                                                                  {&gpio, "gpio"},
                                                                  {&dump, "dump"},
                                                                  {&about, "about"},
                                                                  {&box, "trouble-shooting"}};
    for (const auto& [window, page] : windows) {
        EXPECT_EQ(PageOf(*window), page);
        EXPECT_TRUE(InHandbook(page)) << page.toStdString();
    }
}

TEST_F(HelpPagesTest, TheMainWindowGivesThePageOfThePanelOnView) {
    const auto* toolbar = main.findChild<QWidget*>("Toolbar1");
    const std::vector<std::pair<QString, QString>> panels{{"ReadWrite1", "registers"},
                                                          {"BlockReadWrite", "blocks"},
                                                          {"ControlPanel1", "control-centre"}};
    EXPECT_EQ(PageOf(*toolbar), "main-window");
    EXPECT_TRUE(InHandbook("main-window"));
    for (const auto& [key, page] : panels) {
        PressToolbar(key);
        EXPECT_EQ(PageOf(main), page);
        EXPECT_EQ(PageOf(*toolbar), page);
        EXPECT_TRUE(InHandbook(page)) << page.toStdString();
    }
    EXPECT_EQ(PageOf(*main.findChild<QWidget*>("limits_gauge")), "control-centre");
    EXPECT_EQ(PageOf(*main.findChild<QWidget*>("MainStripChart")), "strip-chart");
    EXPECT_TRUE(InHandbook("strip-chart"));
}

TEST_F(HelpPagesTest, AWindowWithoutAPageTakesThatOfTheWindowBehindIt) {
    PressToolbar("ReadWrite1");
    const QDialog dialog(&main);
    EXPECT_EQ(PageOf(dialog), "registers");
    const QWidget stranger;
    EXPECT_EQ(PageOf(stranger), "index");
    EXPECT_TRUE(InHandbook("index"));
}

TEST_F(HelpPagesTest, F1OpensThePageBesideTheProgram) {
    Install("blocks");
    PressToolbar("BlockReadWrite");
    main.show();
    QTest::keyClick(main.findChild<QWidget*>("ByteCountTXT"), Qt::Key_F1);
    const std::string page = tree.filePath(handbook + "/blocks.html").toStdString();
    EXPECT_THAT(opened, ElementsAre(page));

    QTest::keyClick(main.windowHandle(), Qt::Key_F1);
    EXPECT_THAT(opened, ElementsAre(page, page)) << "once for each press";

    QTest::keyClick(&main, Qt::Key_F1, Qt::ShiftModifier);
    QTest::keyClick(&main, Qt::Key_F2);
    EXPECT_EQ(opened.size(), 2U);
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(HelpPagesTest, APageThatIsNotThereIsToldWithItsPlace) {
    QTest::keyClick(&main, Qt::Key_F1);
    EXPECT_TRUE(opened.empty());
    ASSERT_EQ(dialogs.Messages.size(), 1);
    EXPECT_THAT(dialogs.Messages[0].toStdString(),
                HasSubstr(tree.filePath(handbook + "/main-window.html").toStdString()));
}

TEST_F(HelpPagesTest, ADesktopThatShowsNoPagesIsTold) {
    Install("main-window");
    opens = false;
    QTest::keyClick(&main, Qt::Key_F1);
    EXPECT_THAT(opened, ElementsAre(EndsWith("/main-window.html")));
    ASSERT_EQ(dialogs.Messages.size(), 1);
    EXPECT_THAT(dialogs.Messages[0].toStdString(), HasSubstr("/main-window.html"));
}

} // namespace
} // namespace tqx
