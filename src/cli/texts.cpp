#include "texts.h"

#include "command.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cctype>
#include <charconv>
#include <cmath>

namespace tqx::cli {
namespace {

std::string Upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

/// A number at the beginning of `text`, which is shortened by it.
std::optional<double> TakeNumber(std::string_view& text) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const std::size_t sign = text.starts_with('+') ? 1 : 0;
    const auto [stopped, error] = std::from_chars(text.data() + sign, end, value);
    if (error != std::errc() || !std::isfinite(value)) {
        return std::nullopt;
    }
    text = std::string_view(stopped, static_cast<std::size_t>(end - stopped));
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return value;
}

} // namespace

std::optional<unsigned> NumberIn(const std::string& text) {
    std::string_view digits = text;
    int base = 10;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        digits.remove_prefix(2);
        base = 16;
    } else if (digits.ends_with('h') || digits.ends_with('H')) {
        digits.remove_suffix(1);
        base = 16;
    }
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, value, base);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

std::string BinaryText(std::uint8_t value) {
    return std::bitset<8>(value).to_string();
}

std::string Plain(std::string_view text) {
    std::string plain(text);
    std::erase(plain, ' ');
    return Upper(plain);
}

std::uint8_t RegisterIn(const std::string& text) {
    if (const auto number = NumberIn(text)) {
        if (*number > 0xFF) {
            throw Refusal(WrongUse, "there is no register " + text + "; they run from 0h to FFh");
        }
        return static_cast<std::uint8_t>(*number);
    }
    const std::string wanted = Plain(text);
    std::vector<const RegisterEntry*> found;
    for (const RegisterEntry& entry : RegisterMap) {
        const std::string name = Plain(entry.Caption);
        if (name == wanted) {
            return entry.Address;
        }
        if (!wanted.empty() && name.starts_with(wanted)) {
            found.push_back(&entry);
        }
    }
    if (found.size() == 1) {
        return found.front()->Address;
    }
    std::string names;
    for (const RegisterEntry* each : found) {
        names.append(names.empty() ? "" : ", ").append(each->Caption);
    }
    throw Refusal(WrongUse, names.empty() ? "there is no register \"" + text + "\""
                                          : "\"" + text + "\" could be " + names);
}

std::string_view NameOf(std::uint8_t reg) {
    return reg < RegisterMap.size() ? RegisterMap[reg].Caption : std::string_view();
}

std::vector<std::string> BitsOf(std::uint8_t reg, std::uint8_t value) {
    std::vector<std::string> bits;
    if (reg < RegisterMap.size() && RegisterMap[reg].Legends != DefaultLegends) {
        for (std::size_t bit = 0; bit < 8; ++bit) {
            if ((value >> bit & 1) != 0) {
                bits.emplace_back(RegisterMap[reg].Legends[bit]);
            }
        }
    }
    return bits;
}

std::uint8_t BitIn(std::uint8_t reg, const std::string& legend) {
    const BitLegends& legends =
        reg < RegisterMap.size() ? RegisterMap[reg].Legends : DefaultLegends;
    int bits = 0;
    std::string all;
    for (std::size_t bit = 0; bit < legends.size(); ++bit) {
        all.append(all.empty() ? "" : ", ").append(legends[bit]);
        if (Plain(legends[bit]) == Plain(legend)) {
            bits |= 1 << bit;
        }
    }
    if (std::bitset<8>(static_cast<unsigned>(bits)).count() == 1) {
        return static_cast<std::uint8_t>(bits);
    }
    throw Refusal(WrongUse, bits == 0 ? "\"" + legend + "\" is no bit of it; its bits are " + all
                                      : "\"" + legend +
                                            "\" is more than one bit of it; write a "
                                            "number");
}

std::chrono::nanoseconds TimeIn(const std::string& text) {
    struct Unit {
        std::string_view Name;
        double Seconds;
    };

    constexpr std::array units{Unit{"ms", 0.001}, Unit{"s", 1}, Unit{"m", 60}, Unit{"h", 3600},
                               Unit{"d", 86400}};
    if (text == "tick") {
        return std::chrono::nanoseconds(0);
    }
    std::string_view rest = text;
    const auto number = TakeNumber(rest);
    const auto* const unit = std::ranges::find(units, rest, &Unit::Name);
    constexpr double most = 1e8; // seconds: three years
    if (!number || unit == units.end() || *number <= 0 || *number * unit->Seconds > most) {
        throw Refusal(WrongUse, text + " is no time, such as 500ms, 1s, 5m or 2h");
    }
    return std::chrono::nanoseconds(std::llround(*number * unit->Seconds * 1e9));
}

std::optional<Quantity> QuantityIn(const std::string& text) {
    std::string_view rest = text;
    const auto number = TakeNumber(rest);
    const std::string unit = Plain(rest);
    if (!number || (unit != "V" && unit != "C" && unit != "RPM")) {
        return std::nullopt;
    }
    return Quantity{*number, unit};
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

std::string Counted(std::size_t count, const std::string& word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

} // namespace tqx::cli
