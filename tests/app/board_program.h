#pragma once

#include "support/answered_dialogs.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

namespace tqx::test {

/// The program on a simulated board on which time stands still.
class BoardProgram : public testing::Test {
protected:
    SimulatedBoard board{{.Now = [] { return std::chrono::seconds(60); }}};
    AnsweredDialogs dialogs;
    ConsoleProgram program{
        {board.Factory(), SimulatedBoard::OSVersionInfoFactory(), "Simulated board"}, dialogs};

    template <class Control = QWidget>
    static Control& Find(QWidget& window, const QString& name) {
        auto* control = window.findChild<Control*>(name);
        if (control == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *control;
    }

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
