#pragma once

#include "shell/msg_box_frm.h"
#include "support/answered_dialogs.h"
#include "support/hands.h"

#include <app/console_program.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace tqx::test {

/// The whole program, with a user who clicks OK in every message box that comes up.
class ProgramTest : public testing::Test, protected Hands {
protected:
    AnsweredDialogs dialogs;
    std::unique_ptr<ConsoleProgram> program;
    /// The message boxes so far, as "title|text".
    QStringList boxes;
    /// What the user does while a message box stands, ahead of the click on OK. No click comes
    /// where it ends the program.
    std::function<void()> duringBox = [] {};

    ProgramTest() {
        QObject::connect(&m_boxWatch, &QTimer::timeout, &m_boxWatch, [this] { AnswerBox(); });
    }

    /// The program goes ahead of what a test has behind its link.
    void TearDown() override { program.reset(); }

    void Start(BoardChoice board) {
        program = std::make_unique<ConsoleProgram>(std::move(board), dialogs);
        m_ended = false;
        m_boxWatch.start(0);
        QObject::connect(program.get(), &ConsoleProgram::Ended, qApp, [this] {
            m_ended = true;
            QCoreApplication::exit(0);
        });
        program->Start();
    }

    /// Runs the program with `user` at it until it ends by itself. False when it has to be stopped.
    static bool EndsBy(std::function<void()> user) {
        constexpr int patience = 5000; // milliseconds
        QTimer::singleShot(0, qApp, std::move(user));
        QTimer stop;
        stop.setSingleShot(true);
        QObject::connect(&stop, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
        stop.start(patience);
        return QCoreApplication::exec() == 0;
    }

    /// The window of that name that is on view; null when there is none.
    static QWidget* Shown(const QString& name) {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto at = std::find_if(windows.begin(), windows.end(), [&](const QWidget* window) {
            return window->objectName() == name && window->isVisible();
        });
        return at == windows.end() ? nullptr : *at;
    }

    void ClickWizard(const char* name) { Click(*program->Wizard(), name); }

    void Press(const char* toolbarKey) { Click(Find(*program->Main(), "Toolbar1"), toolbarKey); }

    /// Goes through the wizard to the list of chips, with both media searched.
    void Search() {
        ClickWizard("NextCMD");
        auto& smbus = Find<QCheckBox>(*program->Wizard(), "SMBusCheck");
        smbus.setChecked(true);
        ClickWizard("NextCMD");
    }

    /// Goes through the wizard to the main window, on the chip of that row.
    void Choose(int row) {
        Search();
        Find<QListWidget>(*program->Wizard(), "SearchResultsLIST").setCurrentRow(row);
        ClickWizard("FinishCMD");
    }

    /// Everything that the user was told.
    QStringList Told() const { return dialogs.Messages + boxes; }

private:
    void AnswerBox() {
        auto* box = qobject_cast<MsgBoxFRM*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        boxes << box->windowTitle() + "|" + Find<QLabel>(*box, "MessageLBL").text();
        m_boxWatch.stop(); // what is done meanwhile may serve events
        duringBox();
        if (m_ended) {
            return;
        }
        m_boxWatch.start(0);
        Click(*box, "OKCMD");
    }

    QTimer m_boxWatch;
    bool m_ended = false;
};

} // namespace tqx::test
