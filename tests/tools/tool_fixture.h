#pragma once

#include "support/recorded_bench.h"

#include <console/message_door.h>

#include <QAbstractButton>
#include <QTest>
#include <QWidget>

#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace tqx::test {

/// A recorded bench with a chip at 58h on the printer port, a message box that answers itself and
/// pauses that take no time.
class ToolFixture : public testing::Test {
protected:
    RecordedBench recorded;
    tqx::Bench& bench = recorded.Bench;
    RecordingLink& link = recorded.Link;

    /// Messages as "title|text|okOnly".
    std::vector<std::string> messages;
    MessageDoor door = [this](const QString& title, const QString& message, std::uint8_t okOnly) {
        messages.push_back((title + '|' + message + '|' + QString::number(okOnly)).toStdString());
        duringMessage();
        return std::uint8_t{1};
    };
    std::function<void()> duringMessage = [] {};

    /// A pause is a line among the calls of the link, "Wait" and its length in milliseconds.
    std::function<void(float)> waiter = [this](float seconds) {
        link.Calls.push_back("Wait " + std::to_string(std::lround(seconds * 1000)));
        duringWait();
    };
    std::function<void()> duringWait = [] {};

    ToolFixture() {
        bench.Bus.BusCell = {.SlaveAddress = 0x58, .PortAddress = 0x378, .ComsMedium = 1};
        link.SlaveAddress(0x58);
        link.Take();
    }

    template <class Widget>
    static Widget& Find(QWidget& window, const QString& name) {
        auto* widget = window.findChild<Widget*>(name);
        if (widget == nullptr) {
            throw std::runtime_error("no control " + name.toStdString());
        }
        return *widget;
    }

    static QString Member(const char* name, int index) {
        return QStringLiteral("%1(%2)").arg(name).arg(index);
    }

    /// Clicks near the button's left end, where a check box has its box.
    static void Click(QWidget& window, const QString& name) {
        auto& button = Find<QAbstractButton>(window, name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }

    static bool Enabled(QWidget& window, const QString& name) {
        return Find<QWidget>(window, name).isEnabled();
    }

    /// The calls that begin with `text`.
    static std::vector<std::string> Only(const std::vector<std::string>& calls,
                                         const std::string& text) {
        std::vector<std::string> found;
        for (const std::string& call : calls) {
            if (call.rfind(text, 0) == 0) {
                found.push_back(call);
            }
        }
        return found;
    }
};

} // namespace tqx::test
