#pragma once

#include "bus/byte_slave.h"

#include <link/board_wiring.h>

#include <cstdint>

namespace tqx::sim {

/// The levels of the two bus lines as one side drives them: true lets the line go high.
struct LineLevels {
    bool Data = true;
    bool Clock = true;

    bool operator==(const LineLevels&) const = default;
};

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

/// A bus slave on the two lines. It sees the lines change write by write and drives the data line.
///
/// The data line is the wired AND of both sides. One write of the master can change both lines:
/// with the clock rising, the data line counts as changed before it; with the clock falling, after
/// it. Data falling under a high clock is a start and data rising a stop, at any moment. The slave
/// itself changes the data line only after the clock has fallen.
class LineSlave {
public:
    /// The slave behind the lines must outlive this one.
    explicit LineSlave(ByteSlave& slave);

    /// The master drives the lines like this from now on.
    void Drive(LineLevels master);

    /// The level on the data line.
    bool DataLine() const { return m_line; }

    /// Bit times since the last call: one for each clock pulse, each start on a free bus, and the
    /// stop, which has a clock pulse of its own. A register read has 39.
    int TakeBitTimes();

private:
    /// Who sends the next bit, and which.
    enum class Phase : std::uint8_t { Idle, Receive, AckOut, Send, AckIn };

    void ClockRose();
    void ListenToBit();
    void ClockFell();
    void Started();
    void Stopped();
    void TakeByte();
    void AfterAckOut();
    void BeginByteOut();
    void PutNextBit();
    void Release(Phase next);

    ByteSlave& m_slave;
    LineLevels m_master;
    bool m_drive = true; // what this side drives onto the data line
    bool m_line = true;  // the wired AND
    Phase m_phase = Phase::Idle;
    bool m_addressNext = false;
    bool m_reading = false;
    bool m_masterAck = false;
    int m_bits = 0; // of the byte at hand, that have been clocked
    std::uint8_t m_byte = 0;
    int m_passing = 0; // the bits since the last byte, whoever sends them
    int m_passed = 0;  // how many
    bool m_busFree = true;
    int m_bitTimes = 0;
};

} // namespace tqx::sim
