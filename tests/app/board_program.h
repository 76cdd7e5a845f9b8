#pragma once

#include "support/answered_dialogs.h"
#include "support/hands.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <gtest/gtest.h>

namespace tqx::test {

/// The program on a simulated board on which time stands still.
class BoardProgram : public testing::Test, protected Hands {
protected:
    sim::SimulatedBoard board{{.Now = [] { return std::chrono::seconds(60); }}};
    AnsweredDialogs dialogs;
    ConsoleProgram program{
        {board.Factory(), sim::SimulatedBoard::OSVersionInfoFactory(), "Simulated board"}, dialogs};

    /// Gives the window the keyboard.
    static void Activate(QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// A press of `key` on whatever has the keyboard.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* const focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, key, modifiers);
    }
};

} // namespace tqx::test
