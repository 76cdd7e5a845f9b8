#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tqx {

/// The bytes that a hexadecimal text stands for, as data sheets, dumps and programs write them:
/// "00 1A ff", "001AFF", "0x00, 0x1A", "00h 1Ah". Blanks, line ends, commas, colons and
/// semicolons part the bytes; a run of digits is taken in pairs. Nothing when anything else stands
/// in the text, or a run of more than two digits cannot be paired.
std::optional<std::vector<std::uint8_t>> ParseHexBytes(const QString& text);

/// `bytes` with two digits each, `perLine` in a line, parted by blanks.
QString FormatHexBytes(std::span<const std::uint8_t> bytes, int perLine);

} // namespace tqx
