#include "app/board_program.h"
#include "end_signals.h"

#include <console/main_form.h>
#include <search/init_form.h>

#include <QAbstractButton>
#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <csignal>
#include <gtest/gtest.h>
#include <vector>

namespace tqx {
namespace {

/// A real signal to this process, in the middle of what the program is doing.
class EndSignalsTest : public test::BoardProgram {
protected:
    EndSignals signalsOfProcess;
    QSignalSpy ended{&program, &ConsoleProgram::Ended};
    QTemporaryDir folder;

    void SetUp() override {
        QObject::connect(&signalsOfProcess, &EndSignals::Received, &program, &ConsoleProgram::End);
        program.Start();
        for (const char* button : {"NextCMD", "NextCMD", "FinishCMD"}) {
            Click(*program.Wizard(), button);
        }
    }

    static void Click(QWidget& window, const char* button) {
        Find<QAbstractButton>(window, button).click();
    }

    /// Opens the modal window of a toolbar key and starts its long loop with `buttons`, into which
    /// the signal comes.
    void EndWithin(const char* key, std::vector<const char*> buttons) {
        bool loopLeft = false;
        QTimer::singleShot(0, &program, [&] {
            QWidget* const window = QApplication::activeModalWidget();
            ASSERT_NE(window, nullptr);
            QTimer::singleShot(1, &program, [] { std::raise(SIGTERM); });
            for (const char* button : buttons) {
                Click(*window, button);
            }
            loopLeft = true;
            EXPECT_EQ(ended.count(), 1) << "the loop was left by itself";
        });
        Click(*program.Main(), key);
        EXPECT_TRUE(loopLeft);
        ExpectEnded();
    }

    void ExpectEnded() {
        EXPECT_EQ(ended.count(), 1);
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
        }
    }
};

TEST_F(EndSignalsTest, EndARunningMonitor) {
    Click(*program.Main(), "ControlPanel1");
    std::raise(SIGTERM);
    ASSERT_TRUE(ended.wait());
    ExpectEnded();
}

TEST_F(EndSignalsTest, EndADump) {
    dialogs.FileName = folder.filePath("dump.txt");
    EndWithin("Save1", {"BrowseCMD", "DumpCMD"});
}

} // namespace
} // namespace tqx
