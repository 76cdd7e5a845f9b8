#pragma once

#include "link/board_wiring.h"
#include "link/link_root.h"
#include "link/parallel_port.h"

#include <chrono>
#include <cstdint>
#include <span>

namespace tqx {

/// Length of one round of a bit delay, which has LinkSetup::BitDelayCount + 1 of them.
///
/// A bit of 0 is the shortest, with two delays. At the program's count of 100 it takes 10.1 us, so
/// that no bit is faster than the 100 kHz that the chip's bus allows (99 kHz).
inline constexpr std::chrono::nanoseconds BitDelayRound{50};

/// The bus conditions and bits as states of data line and clock line on a printer port.
///
/// Every operation acts at the point that the transfer has reached and runs to its end; nothing
/// looks at an acknowledge but the caller. Errors of the port pass through and leave the lines in
/// the state that they had reached.
class LineLayer {
public:
    /// Port and setup must outlive the lines.
    LineLayer(ParallelPort& port, const BoardWiring& wiring, const LinkSetup& setup);

    /// How the board takes the line states from now on.
    void Wiring(const BoardWiring& wiring) { m_wiring = wiring; }

    /// The bits that every port write carries besides the line bits. They keep the board powered,
    /// so they are right ahead of the first start, too.
    std::uint8_t ControlBits = LineControlBits;

    /// Start condition, a repeated one as well.
    void LineStart();
    void LineStop();
    /// Ends a transfer from any point, also where a slave holds the data line: clocks on until the
    /// line is free, then a start and a stop, of which no slave misses the first.
    void ParkLines();
    /// Lets both lines go high ahead of a start that follows earlier traffic.
    void ReleaseLines();
    /// Sends one byte, most significant bit first; the acknowledge is a call of its own.
    void ClockOutByte(std::uint8_t value);
    /// One byte with the clock of its acknowledge, whose level is dropped.
    void SendAcknowledged(std::uint8_t value);
    /// The clock of the slave's acknowledge. Gives the level of the data line: True (high) when
    /// the slave did not acknowledge. Its end pulls the data line low ahead of the clock, so that
    /// slaves take a missing acknowledge for a start and listen for an address again.
    bool ClockAck();
    /// Takes one byte in, most significant bit first.
    std::uint8_t ClockInByte();
    /// The master's acknowledge of a byte taken in: one bit of 0.
    void SendAck();
    /// The master's refusal of a byte taken in, which ends the slave's sending.
    void ClockNack();

    /// Leaves the lines as they are for at least `time`.
    void Pause(std::chrono::nanoseconds time) { m_port.Delay(time); }

private:
    enum class Step : std::uint8_t;
    struct Sequences;

    bool Run(std::span<const Step> steps);

    void Put(std::uint8_t pattern) { m_port.WriteData(ControlBits | pattern); }

    ParallelPort& m_port;
    BoardWiring m_wiring;
    const LinkSetup& m_setup;
};

} // namespace tqx
