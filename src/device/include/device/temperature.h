#pragma once

#include <cstdint>

namespace tqx {

class LinkNewComPort;

/// One temperature channel. It holds where its registers are and no reading: every get and set of
/// a measured property is one transfer on the bus, whose LinkError passes through.
class Temperature {
public:
    explicit Temperature(LinkNewComPort& bus);

    std::int16_t MaxAddressPointer = 0;
    std::int16_t MinAddressPointer = 0;
    std::int16_t ValueAddressPointer = 0;

    /// Whole degrees Celsius of a byte in sign and magnitude.
    static std::int16_t RawToDegrees(std::uint8_t raw);

    /// Whole degrees Celsius now.
    std::int16_t Value();

    /// The limits in whole degrees Celsius.
    ///
    /// A register holds sign and magnitude, so -127 to 127 read back as they were set. Values up
    /// to 255 are written as they are (and read back negative), -128 as 80h. Beyond those, the
    /// nearest temperature that a register can hold is written: 7Fh above, FFh below.
    /// @{
    std::int16_t MinLimit();
    void MinLimit(std::int16_t degrees);
    std::int16_t MaxLimit();
    void MaxLimit(std::int16_t degrees);
    /// @}

private:
    static std::uint8_t DegreesToRaw(std::int16_t degrees);

    LinkNewComPort& m_bus;
};

} // namespace tqx
