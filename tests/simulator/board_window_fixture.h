#pragma once

#include "support/hands.h"

#include <link/link_root.h>
#include <simulated/simulated_board.h>
#include <simulator/board_window.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx::test {

/// The window of a simulated board whose clock a test moves, and a link to the board.
class BoardWindowTest : public testing::Test, protected Hands {
protected:
    std::chrono::nanoseconds Time{std::chrono::minutes(10)};
    sim::SimulatedBoard Board{{.Now = [this] { return Time; }}};
    LinkRoot Link{Board.Factory()};
    BoardWindow TheWindow{Board};

    QWidget& Window() override { return TheWindow; }

    /// Puts the tab of that page on view.
    void Open(const QString& page) {
        Find<QTabWidget>("BoardTab").setCurrentWidget(&Find<QWidget>(page));
        TheWindow.show();
    }

    /// Chooses an entry of a list by keyboard.
    static void Choose(QComboBox& list, int entry) {
        QTest::keyClick(&list, Qt::Key_Home);
        for (int i = 0; i < entry; ++i) {
            QTest::keyClick(&list, Qt::Key_Down);
        }
    }

    std::uint8_t Read(std::uint8_t reg) { return Link->SMBusLink().ReadByte(0x2C, reg); }

    void Write(std::uint8_t reg, std::uint8_t value) {
        Link->SMBusLink().WriteByte(0x2C, reg, value);
    }
};

} // namespace tqx::test
