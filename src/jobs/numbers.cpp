#include "jobs/numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tqx {

std::string HexText(unsigned value) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), digits[value % 16]);
        value /= 16;
    } while (value != 0);
    return text;
}

std::string NumberOf(double value) {
    const double rounded = std::nearbyint(value * 1000) / 1000 + 0.0; // 0 takes a sign away
    std::array<char, 352> text{}; // the longest double without an exponent
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed);
    return {text.data(), end};
}

} // namespace tqx
