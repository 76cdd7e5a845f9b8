#pragma once

#include <chrono>
#include <cstdint>

namespace tqx {

/// One printer port, as far as the bus lines need it: the only thing that a board adds.
/// Operations raise LinkError when the port fails.
class ParallelPort {
public:
    virtual ~ParallelPort() = default;

    /// I/O base address, such as 378h.
    virtual std::uint16_t BaseAddress() = 0;
    /// Puts a byte on the data register (base address).
    virtual void WriteData(std::uint8_t value) = 0;
    /// The status register (base address + 1).
    virtual std::uint8_t ReadStatus() = 0;
    /// True: keep the port for a run of transfers. False: let others have it between transfers.
    virtual void Hold(bool hold) = 0;
    /// Holds the lines as they are for at least `time`.
    virtual void Delay(std::chrono::nanoseconds time) = 0;
};

} // namespace tqx
