#include "jobs/dump_format.h"

#include "jobs/numbers.h"

#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace tqx {
namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view RAMSeparator = "\t";
constexpr std::string_view EEPROMSeparator = "    \t";

/// The text, the time and the date, with what stands between them in every heading.
std::string Stamped(std::string_view text, const DumpStamp& stamp, std::string_view stars) {
    std::string line(text);
    line.append(stamp.Time).append("  ****  ").append(stamp.Date).append(" ").append(stars);
    return line.append(LineEnd);
}

/// Each item is `prefix`, the address, a colon and the byte.
std::string RowOf(std::string_view prefix, std::uint8_t address, dump::Row bytes,
                  std::string_view separator) {
    std::string line = "\r";
    for (std::size_t k = 0; k < bytes.size(); ++k) {
        line.append(k == 0 ? "" : separator).append(prefix);
        line.append(HexText(address + static_cast<unsigned>(k)))
            .append(":")
            .append(HexText(bytes[k]));
    }
    return line.append(LineEnd);
}

std::locale UserLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic(); // the environment names one that is not installed
    }
}

std::string Formatted(const std::tm& moment, const char* format) {
    std::ostringstream text;
    text.imbue(UserLocale());
    text << std::put_time(&moment, format);
    return text.str();
}

} // namespace

DumpStamp DumpStamp::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm moment{};
    localtime_r(&now, &moment);
    return {Formatted(moment, "%X"), Formatted(moment, "%x")};
}

namespace dump {

std::string RAMStart(const DumpStamp& stamp) {
    return Stamped("Start of RAM Dump  ****  ", stamp, "*********");
}

std::string RAMRow(std::uint8_t address, Row bytes) {
    return RowOf("", address, bytes, RAMSeparator);
}

std::string RAMEnd(const DumpStamp& stamp) {
    return Stamped("End of RAM Dump  ****  ", stamp, "***********");
}

std::string EEPROMStart(const DumpStamp& stamp) {
    return Stamped("\rStart of EEPROM Dump  ****  ", stamp, "********");
}

std::string EEPROMRow(std::uint8_t high, std::uint8_t low, Row bytes) {
    return RowOf(HexText(high) + ",", low, bytes, EEPROMSeparator);
}

std::string EEPROMEnd(const DumpStamp& stamp) {
    return Stamped("\rEnd of EEPROM Dump  ****  ", stamp, "**************");
}

std::string Terminated(const DumpStamp& stamp) {
    return Stamped("*** Dump terminated by user ***   ", stamp, "***");
}

} // namespace dump
} // namespace tqx
