#pragma once

#include <cstdint>

namespace tqx {

/// How a board wires the printer port's data register to the two bus lines: the line bits for each
/// state of data line and clock line. The bits of ControlBits are never line bits.
struct BoardWiring {
    std::uint8_t BothHigh;
    std::uint8_t DataLowClockHigh;
    std::uint8_t BothLow;
    std::uint8_t DataHighClockLow;

    /// The data register bits that carry the lines.
    constexpr std::uint8_t LineBits() const {
        return static_cast<std::uint8_t>(BothHigh | DataLowClockHigh | BothLow | DataHighClockLow);
    }

    bool operator==(const BoardWiring&) const = default;
};

/// Power and enable bits that every port write carries beside the line bits.
inline constexpr std::uint8_t LineControlBits = 0xB0;

/// The bit of the status register that shows the data line: set means high.
inline constexpr std::uint8_t DataLineStatusBit = 0x10;

/// BoardMode False: D0 drives the data line and D1 the clock line, a set bit lets the line go high.
inline constexpr BoardWiring DirectWiring{
    .BothHigh = 0x03, .DataLowClockHigh = 0x02, .BothLow = 0x00, .DataHighClockLow = 0x01};

/// BoardMode True: D2 and D3 drive the lines through open-collector inverters, a set bit pulls the
/// line low.
inline constexpr BoardWiring InvertedWiring{
    .BothHigh = 0x00, .DataLowClockHigh = 0x04, .BothLow = 0x0C, .DataHighClockLow = 0x08};

/// The wiring for a value of BoardBus::BoardMode.
constexpr const BoardWiring& WiringOf(bool boardMode) {
    return boardMode ? InvertedWiring : DirectWiring;
}

} // namespace tqx
