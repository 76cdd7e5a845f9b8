#pragma once

#include "bus/line_slave.h"

#include <link/board_wiring.h>

#include <cstdint>

namespace tqx {

/// The levels that a byte on the data register puts on the lines of a board.
constexpr LineLevels LevelsOf(const BoardWiring& wiring, std::uint8_t data) {
    const int lines = data & wiring.LineBits();
    return {.Data = lines == wiring.BothHigh || lines == wiring.DataHighClockLow,
            .Clock = lines == wiring.BothHigh || lines == wiring.DataLowClockHigh};
}

/// The byte with other levels in the place of its own.
constexpr std::uint8_t WithLevels(const BoardWiring& wiring, std::uint8_t data, LineLevels levels) {
    std::uint8_t pattern = levels.Clock ? wiring.DataLowClockHigh : wiring.BothLow;
    if (levels.Data) {
        pattern = levels.Clock ? wiring.BothHigh : wiring.DataHighClockLow;
    }
    return static_cast<std::uint8_t>((data & ~wiring.LineBits()) | pattern);
}

} // namespace tqx
