#include "app/board_program.h"
#include "help_pages.h"

#include <tools/tools.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

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

TEST_F(HelpPagesTest, EveryPageIsInTheHandbook) {
    std::vector<HelpPage> pages(WindowPages.begin(), WindowPages.end());
    pages.insert(pages.end(), PanelPages.begin(), PanelPages.end());
    pages.push_back({nullptr, "index"});
    for (const HelpPage& each : pages) {
        EXPECT_TRUE(QFile::exists(QString(TQX_SOURCE_DIR "/docs/handbook/%1.md").arg(each.Page)))
            << each.Page;
    }
}

TEST_F(HelpPagesTest, TheMainWindowGivesThePageOfThePanelOnView) {
    const auto* toolbar = main.findChild<QWidget*>("Toolbar1");
    EXPECT_EQ(PageOf(*toolbar), "main-window");
    for (const auto& [key, page] :
         {std::pair("ReadWrite1", "registers"), std::pair("BlockReadWrite", "blocks"),
          std::pair("ControlPanel1", "control-centre")}) {
        PressToolbar(key);
        EXPECT_EQ(PageOf(main), page);
        EXPECT_EQ(PageOf(*toolbar), page);
    }
    EXPECT_EQ(PageOf(*main.findChild<QWidget*>("MainStripChart")), "strip-chart");
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

} // namespace
} // namespace tqx
