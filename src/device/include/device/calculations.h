#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace tqx {

class LinkNewComPort;

/// Revolutions per minute of a tachometer count, and the count of a speed: each is the same
/// function of the other.
///
/// `divisor` is 1, 2, 4 or 8. A `value` of 0 counts as 1. The result is a whole number and never
/// above the ceiling of the divisor: 10000, 10074, 10227 or 10546.
double FanCountConvert(double value, std::int16_t divisor);

/// The divisor that a two-bit divisor field stands for: 1, 2, 4, 8 for the codes 0 to 3, nothing
/// for any other.
constexpr std::optional<std::int16_t> DivisorFromCode(int code) {
    if (code < 0 || code > 3) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(1 << code);
}

/// The fan divisors that all fans share, and how they are read from the chip.
class Calculations {
public:
    explicit Calculations(LinkNewComPort& bus);

    /// Divisor of each fan, index by fan number: 1, 2, 4 or 8. 0 until the first refresh.
    std::array<std::int16_t, 8> FanDivisors{};

    /// The byte of the divisor register of fans 0 to 3, and of fans 4 to 7. One read each.
    /// @{
    std::uint8_t ReadDivisorRegister1();
    std::uint8_t ReadDivisorRegister2();
    /// @}

    /// Reads both divisor registers and fills FanDivisors.
    void RefreshFanDivisors();

private:
    void TakeDivisors(std::uint8_t fields, std::size_t firstFan);

    LinkNewComPort& m_bus;
};

} // namespace tqx
