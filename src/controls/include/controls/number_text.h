#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <string_view>

namespace tqx {

/// What every read-out of a panel shows where there is no value.
inline constexpr QLatin1String NoValue("---");

/// A text of the chip's tables or of the link for a control.
inline QString TextOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// `value` as the panels show it: upper-case hexadecimal, no prefix, no leading zeros.
inline QString HexText(unsigned value) {
    return QString::number(value, 16).toUpper();
}

/// The byte that the whole of `text` stands for in `base`; nothing when it is no byte.
inline std::optional<std::uint8_t> ByteOf(const QString& text, int base) {
    bool good = false;
    const unsigned value = text.toUInt(&good, base);
    if (!good || value > 0xFF) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(value);
}

} // namespace tqx
