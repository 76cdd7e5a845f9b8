#include "shell/msg_box_frm.h"
#include "support/hands.h"
#include "support/recorded_bench.h"

#include <console/main_form.h>
#include <controls/linear_gauge.h>
#include <device/bench.h>
#include <link/link_error.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down which windows were asked for, and closes none.
class RecordedToolWindows : public ToolWindows {
public:
    std::vector<std::string> Opened;

    void ShowRegisterDump(MainForm&) override { Opened.emplace_back("dump"); }

    void ShowAbout(MainForm&) override { Opened.emplace_back("about"); }

    void ShowGPIOConfig(MainForm&) override { Opened.emplace_back("gpio"); }

    void ShowEraseEEPROM(MainForm&) override { Opened.emplace_back("erase"); }

    void NewEEPROMCom(MainForm&, const QString& caption) override {
        Opened.push_back(caption.toStdString());
    }

    void CloseRegisterAccessWindows() override { Opened.emplace_back("close all"); }

    void UnloadAll() override { Opened.emplace_back("unload"); }
};

class TheMainForm : public testing::Test, protected test::Hands {
protected:
    test::RecordedBench recorded;
    Bench& bench = recorded.Bench;
    test::RecordingLink* link = &recorded.Link;
    RecordedToolWindows tools;
    std::unique_ptr<MainForm> form = std::make_unique<MainForm>(bench, tools);

    void SetUp() override { form->show(); }

    void Press(const char* key) {
        QTest::mouseClick(form->findChild<QToolButton*>(key), Qt::LeftButton);
    }

    /// Answers the next message box with a click on `button` and gives its text; a null name closes
    /// it by its own close control.
    void AnswerNext(const char* button, QString* text = nullptr) {
        QTimer::singleShot(0, form.get(), [this, button, text] {
            auto* box = qobject_cast<MsgBoxFRM*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            if (text != nullptr) {
                *text = box->windowTitle() + "|" + box->findChild<QLabel*>("MessageLBL")->text();
            }
            if (button == nullptr) {
                box->close();
            } else {
                QTest::mouseClick(box->findChild<QPushButton*>(button), Qt::LeftButton);
            }
        });
    }

    std::string PanelsOnView() {
        std::string names;
        for (const char* panel :
             {"MainPanel", "ReadWritePanel", "ControlCentrePanel", "BlockReadCRCPanel"}) {
            if (!form->findChild<QWidget*>(panel)->isHidden()) {
                names += std::string(names.empty() ? "" : " ") + panel;
            }
        }
        return names;
    }

    using Hands::Find;

    template <typename Control>
    Control* Find(const char* name) {
        return &Find<Control>(*form, name);
    }
};

TEST_F(TheMainForm, LoadsInOrderAndThenLeavesTheChipAlone) {
    EXPECT_THAT(link->Take(), ElementsAre("SMBusLink.ReadByte 0 2", "SMBusLink.ReadByte 0 3",
                                          "EEPROMLink.EEPROMWait 0", "EEPROMLink.EEPROMDelay 0"));
    EXPECT_EQ(bench.Link.Setup.BitDelayCount, 100);
    EXPECT_EQ(Find<QLabel>("lblVersion")->text(), "Version 3.0.0");
    EXPECT_EQ(PanelsOnView(), "MainPanel");
    QTest::qWait(20);
    EXPECT_THAT(link->Take(), IsEmpty());
}

TEST_F(TheMainForm, EachPanelKeyLeavesItsPanelAloneAndGivesItTheKeyboard) {
    struct {
        const char* Key;
        const char* Panel;
    } const table[] = {
        {"ReadWrite1", "ReadWritePanel"},
        {"BlockReadWrite", "BlockReadCRCPanel"},
        {"ControlPanel1", "ControlCentrePanel"},
    };

    for (const auto& row : table) {
        Press(row.Key);
        EXPECT_EQ(PanelsOnView(), row.Panel);
        EXPECT_TRUE(Find<QWidget>(row.Panel)->isAncestorOf(form->focusWidget())) << row.Key;
    }
    EXPECT_EQ(Find<QAbstractButton>("VisStartCHK")->text(), "Stop");
    Press("ReadWrite1");
    EXPECT_EQ(PanelsOnView(), "ReadWritePanel");
    EXPECT_EQ(Find<QAbstractButton>("VisStartCHK")->text(), "Start");
    Find<QWidget>("HexTXT")->setFocus();
    Press("ReadWrite1");
    EXPECT_EQ(form->focusWidget()->objectName(), "HexTXT") << "it had the keyboard already";
}

TEST_F(TheMainForm, GoOnThePrinterPortWritesEverythingInOrder) {
    bench.Bus.BusCell.SlaveAddress = 0x58;
    bench.Bus.BusCell.PortAddress = 0x378;
    bench.Bus.BusCell.ComsMedium = ComsPrinterPort;
    link->SlaveAddress(0x58);
    link->Take();
    QString question;
    AnswerNext("OKCMD", &question);
    Press("Go1");
    form->StopMonitorTimers();
    EXPECT_EQ(
        question,
        "Information|Would you like to automatically initialize the TQX7716 evaluation system");
    const std::string beginning = "W0=3 W60=FF W61=FF W62=FF W63=FF W64=FF W65=FF W66=FF W67=FF "
                                  "W1D=FF WA=55 WB=55 R1 R0 R7 R69 R68 W0=3 R1 R0 R7 R69 R68 ";
    const std::string traffic = link->TakeTraffic();
    EXPECT_THAT(traffic, testing::StartsWith(beginning + "W69=0 W68="));
    EXPECT_EQ(std::count(traffic.begin() + static_cast<int>(beginning.size()), traffic.end(), 'W'),
              2 * 3 + 8 + 2 * 16)
        << "the default limits, and nothing more";
    EXPECT_EQ(PanelsOnView(), "ControlCentrePanel");
}

TEST_F(TheMainForm, EnterPressesTheButtonThatHasTheFocusAndNothingElse) {
    Press("BlockReadWrite");

    for (const char* name : {"BlockReadCMD", "UsePECCHK", "ByteCountTXT", "BlockWriteTXT(1)"}) {
        auto* control = Find<QWidget>(name);
        control->setFocus();
        link->Take();
        QTest::keyClick(control, Qt::Key_Return);
        EXPECT_EQ(link->Take().empty(), name != std::string("BlockReadCMD")) << name;
    }
    EXPECT_FALSE(Find<QCheckBox>("UsePECCHK")->isChecked());

    auto* gpio = Find<QToolButton>("GPIO");
    gpio->setFocus();
    QTest::keyClick(gpio, Qt::Key_Enter);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Enter, Qt::NoModifier, {}, true);
    QApplication::sendEvent(gpio, &held);
    EXPECT_THAT(tools.Opened, ElementsAre("gpio"));
}

TEST_F(TheMainForm, AFailedCallIsToldAndLeavesEveryPanelUsable) {
    bench.Bus.BusCell = {.SlaveAddress = 0x2C, .PortAddress = 0x378, .ComsMedium = ComsSMBus};
    const LinkError failure("cannot read", "the port is gone", "Plug it in again.");
    Press("BlockReadWrite");
    link->FailOn = "BoardBus.BlockRead";
    Click(*form, "BlockReadCMD");
    EXPECT_EQ(recorded.TakeFailures(), 1);
    EXPECT_FALSE(Find<QWidget>("BlockReadCMD")->isEnabled()) << "until it is dealt with";
    link->Take();
    QString text;
    AnswerNext("OKCMD", &text);
    form->LinkFailed(failure);
    EXPECT_EQ(text, "The link to the TQX7716 failed|cannot read: the port is gone\n\n"
                    "Plug it in again.");
    EXPECT_THAT(link->Take(), testing::Contains("PrinterPortLink.BurstMode 0"));
    EXPECT_TRUE(Find<QWidget>("BlockReadCMD")->isEnabled());

    Press("ControlPanel1");
    auto& gauge = Find<LinearGauge>(*form, "limits_gauge");
    const QPoint grip = gauge.Plan().HandleLine(gauge.Pointers().at(HighHandle)).center().toPoint();
    link->FailOn = "SMBusLink.WriteByte";
    QTest::mousePress(&gauge, Qt::LeftButton, Qt::NoModifier, grip);
    const auto dragTo = [&gauge](const QPoint& point) {
        QMouseEvent move(QEvent::MouseMove, point, gauge.mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&gauge, &move);
    };
    dragTo(grip - QPoint(0, 20));
    EXPECT_EQ(recorded.TakeFailures(), 1);
    AnswerNext("OKCMD");
    form->LinkFailed(failure);
    EXPECT_EQ(Find<QAbstractButton>("VisStartCHK")->text(), "Start");
    link->FailOn.clear();
    link->Take();
    dragTo(grip - QPoint(0, 40));
    QTest::mouseRelease(&gauge, Qt::LeftButton, Qt::NoModifier, grip);
    EXPECT_THAT(link->Take(), IsEmpty()) << "the pointer is in no hand any more";
}

} // namespace
} // namespace tqx
