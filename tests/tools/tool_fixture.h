#pragma once

#include "support/hands.h"
#include "support/recorded_bench.h"

#include <console/message_door.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace tqx::test {

/// A recorded bench with a chip at 58h on the printer port, a message box that answers itself and
/// pauses that take no time.
class ToolFixture : public testing::Test, protected Hands {
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

    /// A click in whose course a link call fails.
    void ClickFails(const QString& name) {
        Click(name);
        EXPECT_EQ(recorded.TakeFailures(), 1) << name.toStdString();
    }

    /// The calls that begin with `text`.
    static std::vector<std::string> Only(const std::vector<std::string>& calls,
                                         const std::string& text) {
        std::vector<std::string> found;
        std::ranges::copy_if(calls, std::back_inserter(found),
                             [&](const std::string& call) { return call.starts_with(text); });
        return found;
    }
};

} // namespace tqx::test
