#pragma once

#include <device/channel_table.h>
#include <device/register_map.h>
#include <jobs/numbers.h>

#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the user writes and reads: numbers, names of registers and bits, times.
namespace tqx::cli {

using Json = nlohmann::ordered_json;

/// "2Eh", "0x2E" or "46"; nothing for any other text.
std::optional<unsigned> NumberIn(const std::string& text);

std::string BinaryText(std::uint8_t value);

/// Nothing but the word's letters and digits tell: blanks and case do not count.
std::string Plain(std::string_view text);

/// The address that a name, a beginning of a name that only one register has, or a number stands
/// for. Anything else is refused with what it could mean.
std::uint8_t RegisterIn(const std::string& text);

/// The caption of a register; empty from 70h on.
std::string_view NameOf(std::uint8_t reg);

/// The bits of `value` that are set, by the register's own legends. Nothing for a register that has
/// none of its own.
std::vector<std::string> BitsOf(std::uint8_t reg, std::uint8_t value);

/// The bit with this legend. Refused where the register has none, or several.
std::uint8_t BitIn(std::uint8_t reg, const std::string& legend);

/// "500ms", "1s", "5m", "2h"; "tick" is 0.
std::chrono::nanoseconds TimeIn(const std::string& text);

/// A number with its unit, such as "11.4V".
struct Quantity {
    double Value;
    /// "V", "C" or "RPM".
    std::string Unit;
};

std::optional<Quantity> QuantityIn(const std::string& text);

/// `text` with blanks behind it to a width.
std::string Padded(std::string text, std::size_t width);

/// `count` and the word, with an s where it takes one: "1 byte", "2 bytes".
std::string Counted(std::size_t count, const std::string& word);

} // namespace tqx::cli
