#include "jobs/chip_image.h"

#include "jobs/files.h"
#include "jobs/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace tqx {
namespace {

constexpr std::size_t EEPROMBase = 0x8000;
constexpr std::string_view Blanks = " \t\r";

/// The number that `text` is in hexadecimal, and nothing else.
std::optional<unsigned> Hex(std::string_view text) {
    unsigned value = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value, 16);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

std::optional<std::uint8_t> HexByte(std::string_view text) {
    const auto value = Hex(text);
    return value && *value <= 0xFF ? std::optional(static_cast<std::uint8_t>(*value))
                                   : std::nullopt;
}

/// Calls `work` with each line of a text and its number, until it gives False. The number of the
/// line that did; 0 for none.
template <typename Work>
int FirstBadLine(std::string_view text, Work&& work) {
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        line.remove_prefix(std::min(line.find_first_not_of(Blanks), line.size()));
        line = line.substr(0, line.find_last_not_of(Blanks) + 1);
        if (!work(line)) {
            return number;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return 0;
}

FileError Broken(const std::string& name, int line, const char* of) {
    return FileError(name + ", line " + std::to_string(line) + ": this is no line of " + of);
}

/// An item of a dump: "74:5D" is a register and its byte, "80,11:0" a byte of the EEPROM.
bool TakeItem(ChipImage& image, std::string_view item) {
    const std::size_t colon = std::min(item.find(':'), item.size() - 1);
    const std::string_view place = item.substr(0, colon);
    const auto value = HexByte(item.substr(colon + 1));
    const std::size_t comma = place.find(',');
    if (comma == std::string_view::npos) {
        const auto reg = HexByte(place);
        if (reg && value) {
            image.Registers[*reg] = value;
        }
        return reg && value;
    }
    const auto high = HexByte(place.substr(0, comma));
    const auto low = HexByte(place.substr(comma + 1));
    const std::size_t address = high && low ? *high * 256U + *low - EEPROMBase : SIZE_MAX;
    if (!value || address >= ChipImage::EEPROMSize) {
        return false;
    }
    image.EEPROM[address] = value;
    return true;
}

bool TakeDumpLine(ChipImage& image, std::string_view line) {
    if (line.starts_with("Start of RAM Dump")) {
        image.Registers.fill({});
        return true;
    }
    if (line.starts_with("Start of EEPROM Dump")) {
        image.EEPROM.fill({});
        return true;
    }
    if (line.starts_with("End of ") || line.starts_with("*** ")) {
        return true;
    }
    while (!line.empty()) {
        const std::size_t end = std::min(line.find_first_of(Blanks), line.size());
        if (!TakeItem(image, line.substr(0, end))) {
            return false;
        }
        line.remove_prefix(std::min(line.find_first_not_of(Blanks, end), line.size()));
    }
    return true;
}

/// ":LLAAAATT", LL bytes and a sum that makes all of them come to 0. Type 00 is data, 01 the end,
/// and 02 to 05 are accepted where they move nothing.
bool TakeHexLine(ChipImage& image, std::string_view line) {
    if (line.empty()) {
        return true;
    }
    std::vector<std::uint8_t> bytes;
    unsigned sum = 0;
    for (std::size_t i = 1; i + 1 < line.size(); i += 2) {
        const auto byte = HexByte(line.substr(i, 2));
        if (!byte) {
            return false;
        }
        bytes.push_back(*byte);
        sum += *byte;
    }
    constexpr std::size_t head = 4;
    if (line[0] != ':' || line.size() % 2 == 0 || bytes.size() < head + 1 ||
        bytes.size() != head + 1 + bytes[0] || sum % 256 != 0) {
        return false;
    }
    if (bytes[3] != 0) {
        const bool moves =
            std::any_of(bytes.begin() + head, bytes.end() - 1, [](int b) { return b != 0; });
        return bytes[3] <= 5 && !moves;
    }
    const std::size_t address = bytes[1] * 256U + bytes[2];
    const std::size_t first = address >= EEPROMBase ? address - EEPROMBase : address;
    if (first + bytes[0] > ChipImage::EEPROMSize) {
        return false;
    }
    std::copy_n(bytes.begin() + head, bytes[0], image.EEPROM.begin() + static_cast<long>(first));
    return true;
}

template <std::size_t Size>
void Compare(const std::array<std::optional<std::uint8_t>, Size>& first,
             const std::array<std::optional<std::uint8_t>, Size>& second, bool eeprom,
             std::vector<ChipDifference>& differences) {
    for (std::size_t i = 0; i < Size; ++i) {
        if (first[i] && second[i] && *first[i] != *second[i]) {
            differences.push_back({eeprom, i, *first[i], *second[i]});
        }
    }
}

constexpr auto Known = [](const std::optional<std::uint8_t>& byte) { return byte.has_value(); };

} // namespace

bool ChipImage::HasRegisters() const {
    return std::ranges::any_of(Registers, Known);
}

bool ChipImage::HasEEPROM() const {
    return std::ranges::any_of(EEPROM, Known);
}

std::string EEPROMPlace(std::size_t address) {
    const auto at = static_cast<unsigned>(address);
    return HexText(0x80 + at / 256) + "," + HexText(at % 256);
}

ChipImage ImageIn(std::string_view content, const std::string& name) {
    ChipImage image;
    if (content.find("Start of RAM Dump  ****") != std::string_view::npos ||
        content.find("Start of EEPROM Dump  ****") != std::string_view::npos) {
        const int bad = FirstBadLine(content, [&](auto line) { return TakeDumpLine(image, line); });
        if (bad != 0) {
            throw Broken(name, bad, "a register dump");
        }
    } else if (content.starts_with(':')) {
        const int bad = FirstBadLine(content, [&](auto line) { return TakeHexLine(image, line); });
        if (bad != 0) {
            throw Broken(name, bad, "Intel HEX for this EEPROM");
        }
    } else {
        if (content.empty() || content.size() > ChipImage::EEPROMSize) {
            throw FileError(name + ": the EEPROM has 8192 bytes and the file " +
                            std::to_string(content.size()));
        }
        std::ranges::transform(content, image.EEPROM.begin(),
                               [](char c) { return static_cast<std::uint8_t>(c); });
    }
    return image;
}

std::string IntelHex(const ChipImage& image) {
    constexpr std::size_t width = 16;
    std::string text;
    std::array<char, 16> part{};
    for (std::size_t at = 0; at < ChipImage::EEPROMSize; at += width) {
        std::snprintf(part.data(), part.size(), ":%02zX%04zX00", width, at);
        text += part.data();
        std::size_t sum = width + at / 256 + at % 256;
        for (std::size_t i = at; i < at + width; ++i) {
            const unsigned byte = image.EEPROM[i].value_or(0xFF);
            std::snprintf(part.data(), part.size(), "%02X", byte);
            text += part.data();
            sum += byte;
        }
        std::snprintf(part.data(), part.size(), "%02zX\n", (256 - sum % 256) % 256);
        text += part.data();
    }
    return text + ":00000001FF\n";
}

std::vector<ChipDifference> Differences(const ChipImage& first, const ChipImage& second) {
    std::vector<ChipDifference> differences;
    Compare(first.Registers, second.Registers, false, differences);
    Compare(first.EEPROM, second.EEPROM, true, differences);
    return differences;
}

} // namespace tqx
