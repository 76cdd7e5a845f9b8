#pragma once

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
#include <stdexcept>

namespace tqx::test {

/// The window of a simulated board whose clock a test moves, and a link to the board.
class BoardWindowTest : public testing::Test {
protected:
    std::chrono::nanoseconds Time{std::chrono::minutes(10)};
    sim::SimulatedBoard Board{{.Now = [this] { return Time; }}};
    LinkRoot Link{Board.Factory()};
    BoardWindow Window{Board};

    /// Puts the tab of that page on view.
    void Open(const QString& page) {
        Find<QTabWidget>("BoardTab").setCurrentWidget(&Find<QWidget>(page));
        Window.show();
    }

    template <class Widget>
    Widget& Find(const QString& name) {
        auto* widget = Window.findChild<Widget*>(name);
        if (widget == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *widget;
    }

    template <class Widget>
    Widget& Find(const char* name, int index) {
        return Find<Widget>(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
    }

    /// Clicks near the left end, where a check box has its box.
    static void Click(QAbstractButton& button) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
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
