#pragma once

#include <cstdint>

namespace tqx {

class LinkNewComPort;

/// One voltage input. It holds where its registers are, its scale, and no reading: every get and
/// set of a measured property is one transfer on the bus, whose LinkError passes through.
class Voltage {
public:
    explicit Voltage(LinkNewComPort& bus);

    std::int16_t HighLimitPtr = 0;
    std::int16_t ValueAddrPtr = 0;
    std::int16_t LowLimitPtr = 0;
    /// Volts that the count 255 stands for.
    float MaxVoltage = 0;
    /// Volts that the count 0 stands for; below 0 on an input with a negative range. No count
    /// reads as this value, since 0 reads as 1.
    float MinVoltage = 0;

    /// Volts of a count, which are not rounded. A count of 0 reads as 1.
    float RawToVolts(float raw) const;

    /// Volts now, rounded to three decimals.
    float Value();

    /// The limits in volts. A get is not rounded.
    ///
    /// A set rounds to three decimals first. It takes exactly 0 V for 1 V, and on an input without
    /// a negative range it leaves MinVoltage out of the count, so a limit may read back a step
    /// higher than it was set. Volts outside the range are written as the nearest count, 00h or
    /// FFh.
    /// @{
    float LowLimit();
    void LowLimit(float volts);
    float HighLimit();
    void HighLimit(float volts);
    /// @}

private:
    float VoltsToRaw(float volts) const;
    float ReadVolts(std::int16_t address);
    void WriteVolts(std::int16_t address, float volts);

    LinkNewComPort& m_bus;
};

} // namespace tqx
