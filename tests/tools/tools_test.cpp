#include "eeprom_com/eeprom_com_frm.h"
#include "erase_eeprom/erase_eeprom_frm.h"
#include "gpio_config/gpio_config_frm.h"
#include "register_dump/register_dump_frm.h"
#include "support/answered_dialogs.h"
#include "tools/tool_fixture.h"

#include <console/main_form.h>
#include <tools/tools.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <memory>

namespace tqx {
namespace {

/// Windows opened and closed from a main window.
class ToolsTest : public test::ToolFixture {
protected:
    test::AnsweredDialogs dialogs;
    Tools tools{dialogs, waiter};
    std::unique_ptr<MainForm> main = std::make_unique<MainForm>(bench, tools);

    void SetUp() override {
        main->show();
        link.Take();
    }

    QWidget& Window() override { return *main; }

    /// The windows of this class on view, modal ones too.
    template <class Form>
    static std::vector<Form*> OnView() {
        std::vector<Form*> windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* wanted = qobject_cast<Form*>(window);
            if (wanted != nullptr && !wanted->isHidden()) {
                windows.push_back(wanted);
            }
        }
        return windows;
    }

    /// The only one.
    template <class Form>
    static Form& TheOne() {
        const auto windows = OnView<Form>();
        if (windows.size() != 1) {
            throw std::runtime_error(std::to_string(windows.size()) + " windows of the class");
        }
        return *windows.front();
    }

    static EEPROMComFRM& EEPROMCom(const QString& caption) {
        for (EEPROMComFRM* window : OnView<EEPROMComFRM>()) {
            if (window->windowTitle() == caption) {
                return *window;
            }
        }
        throw std::runtime_error("no window " + caption.toStdString());
    }

    void Key(const char* key) { Find<QAction>(key).trigger(); }

    /// Closes the next message box with OK, and notes that it came.
    int boxes = 0;

    void AnswerTheNextBox() {
        QTimer::singleShot(0, main.get(), [this] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                ++boxes;
                Click(*box, "OKCMD");
            }
        });
    }
};

TEST_F(ToolsTest, TenEEPROMWindowsAndNoEleventh) {
    for (int i = 0; i < 10; ++i) {
        Key("RegAccess");
    }
    EXPECT_EQ(OnView<EEPROMComFRM>().size(), 10U);
    const QRect screen = main->screen()->availableGeometry();
    QPoint before = main->pos();
    for (int i = 1; i <= 10; ++i) {
        const QPoint at = EEPROMCom(QStringLiteral("Register Access %1").arg(i)).pos();
        EXPECT_TRUE(screen.contains(at)) << i;
        EXPECT_TRUE(i > 3 || (at.x() > before.x() && at.y() > before.y())) << i;
        before = at;
    }
    AnswerTheNextBox();
    Key("RegAccess");
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(OnView<EEPROMComFRM>().size(), 10U);

    QPointer<EEPROMComFRM> third = &EEPROMCom("Register Access 3");
    Click(*third, "CloseCMD");
    EXPECT_EQ(main->EEPROMComFormCounter(), 9);
    QCoreApplication::processEvents();
    EXPECT_TRUE(third.isNull()) << "not destroyed";
    Key("RegAccess");
    EXPECT_EQ(OnView<EEPROMComFRM>().size(), 10U);
}

TEST_F(ToolsTest, ThereIsOneGPIOPanelAndItIsReadAgainWhenItIsOpenedAgain) {
    Key("GPIO");
    QPointer<GPIOConfigFRM> first = &TheOne<GPIOConfigFRM>();
    link.Take();
    Key("GPIO");
    EXPECT_EQ(&TheOne<GPIOConfigFRM>(), first);
    EXPECT_TRUE(link.Take().empty());
    first->close();
    Key("GPIO");
    EXPECT_EQ(link.Take().size(), 7U);
    QCoreApplication::processEvents();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(OnView<GPIOConfigFRM>().size(), 1U);
}

TEST_F(ToolsTest, TheDumpWindowStopsTheMonitorAndStartsNothingAgain) {
    auto& monitor = Find<QTimer>("BargraphTimer");
    monitor.start();
    ASSERT_TRUE(monitor.isActive());
    QTimer::singleShot(0, main.get(), [&] {
        EXPECT_FALSE(monitor.isActive());
        EXPECT_EQ(TheOne<RegisterDumpFRM>().windowModality(), Qt::WindowModal);
        tools.ShowRegisterDump(*main); // there is one, which comes to the front
        TheOne<RegisterDumpFRM>().close();
    });
    Key("Save1");
    EXPECT_FALSE(monitor.isActive());
}

TEST_F(ToolsTest, ClosingAWindowInItsLongLoopDestroysItOnlyAfterTheLoop) {
    Key("RegAccess");
    QPointer<EEPROMComFRM> window = &EEPROMCom("Register Access 1");
    Click(*window, "AccessEEPROMCHK");
    int pauses = 0;
    duringWait = [&] {
        if (++pauses == 2) {
            window->close();
            EXPECT_EQ(main->EEPROMComFormCounter(), 0);
        }
        QCoreApplication::processEvents();
        EXPECT_FALSE(window.isNull());
    };
    Click(*window, "WriteALLCMD");
    EXPECT_EQ(pauses, 2);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isNull());
}

/// The main window closes in the middle of a long bus sequence, and the application ends.
class EndInTheMiddleTest : public ToolsTest {
protected:
    void CloseMainSoon() {
        QTimer::singleShot(0, main.get(), [this] { main->close(); });
    }

    /// Runs the application as its main does, from `begin` to the main window's close.
    void Run(const std::function<void()>& begin) {
        QObject::connect(main.get(), &MainForm::Unloaded, qApp, &QCoreApplication::quit);
        QTimer::singleShot(0, main.get(), begin);
        QTimer::singleShot(20'000, main.get(), [] {
            ADD_FAILURE() << "the application did not end";
            QCoreApplication::exit(1);
        });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        main.reset();
    }
};

TEST_F(EndInTheMiddleTest, OfAWriteProtectWarning) {
    link.Registers[0x13] = 0x08;
    Run([this] {
        Key("RegAccess");
        EEPROMComFRM& window = EEPROMCom("Register Access 1");
        Click(window, "AccessEEPROMCHK");
        CloseMainSoon();
        Click(window, "WriteByteCMD(0)");
    });
    EXPECT_TRUE(Only(link.Take(), "EEPROMLink.WriteEEPROM").empty());
}

} // namespace
} // namespace tqx
