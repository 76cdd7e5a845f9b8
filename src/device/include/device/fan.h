#pragma once

#include <cstdint>

namespace tqx {

class Calculations;
class LinkNewComPort;

/// One tachometer input. It holds where its registers are and no reading: every get and set of a
/// measured property is one transfer on the bus, whose LinkError passes through.
class Fan {
public:
    Fan(LinkNewComPort& bus, Calculations& calculations);

    /// Index 0 to 7, which is also the index into FanDivisors.
    std::int16_t Number = 0;
    std::int16_t ValueAddressPointer = 0;
    std::int16_t LimitAddressPointer = 0;

    /// Revolutions per minute now.
    double Speed();

    /// The slowest speed without an alarm, in revolutions per minute.
    ///
    /// A limit slower than the chip can count is written as the count FFh; one that has no count
    /// at all (a negative speed, or one beyond the chip's clock) as 00h.
    /// @{
    double Limit();
    void Limit(double rpm);
    /// @}

    /// Reads the divisors of all fans from the chip (two transfers), then gives this fan's. The
    /// conversions use the divisors of the last such read.
    std::int16_t Divisor();

private:
    std::int16_t LookupDivisor() const;
    double ReadSpeed(std::int16_t address);

    LinkNewComPort& m_bus;
    Calculations& m_calculations;
};

} // namespace tqx
