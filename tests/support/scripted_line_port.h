#pragma once

#include "support/scripted_board.h"

#include <link/line_port.h>

#include <gtest/gtest.h>

namespace tqx::test {

/// The line layer's view of a ScriptedBoard.
class ScriptedLinePort : public LinePort {
public:
    explicit ScriptedLinePort(ScriptedBoard& board)
        : m_board(board) {}

    std::uint16_t PortAddress() override { return m_board.BaseAddress(); }

    void PortOut(std::uint8_t value) override { m_board.WriteData(value); }

    std::uint8_t PortIn(std::uint16_t port) override {
        EXPECT_EQ(port, m_board.BaseAddress() + 1);
        return m_board.ReadStatus();
    }

    void LineDelay(std::chrono::nanoseconds time) override { m_board.Delay(time); }

private:
    ScriptedBoard& m_board;
};

} // namespace tqx::test
