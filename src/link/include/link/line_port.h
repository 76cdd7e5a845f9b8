#pragma once

#include <chrono>
#include <cstdint>

namespace tqx {

/// What the line layer needs of a printer port: its data register, a register by address, and the
/// time between two line states.
class LinePort {
public:
    virtual ~LinePort() = default;

    /// I/O base address; the status register stands at the next address.
    virtual std::uint16_t PortAddress() = 0;
    /// Writes one byte to the data register.
    virtual void PortOut(std::uint8_t value) = 0;
    /// Reads one byte from the given port address.
    virtual std::uint8_t PortIn(std::uint16_t port) = 0;
    /// Holds the lines as they are for at least `time`. A port that has no better way waits by the
    /// clock.
    virtual void LineDelay(std::chrono::nanoseconds time);
};

} // namespace tqx
