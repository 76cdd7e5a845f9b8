#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tqx {

/// A time and a date as a dump shows them.
struct DumpStamp {
    std::string Time;
    std::string Date;

    /// This moment, each as the platform's default text for it.
    static DumpStamp Now();
};

/// The text of a register dump, line by line. A line ends with CR LF, and most begin with a CR of
/// their own. Numbers are hexadecimal in capitals without leading zeros.
namespace dump {

/// Bytes in a row.
inline constexpr int RowSize = 8;

using Row = std::span<const std::uint8_t, RowSize>;

/// @name Registers: a heading, 32 rows, an end, three times BlankLine
/// @{
std::string RAMStart(const DumpStamp& stamp);
/// The row of the registers `address` to `address` + 7.
std::string RAMRow(std::uint8_t address, Row bytes);
std::string RAMEnd(const DumpStamp& stamp);
/// @}

/// @name EEPROM: a heading, 1024 rows, an end, three times BlankLine
/// @{
std::string EEPROMStart(const DumpStamp& stamp);
/// The row of the bytes at high:low to high:(low + 7).
std::string EEPROMRow(std::uint8_t high, std::uint8_t low, Row bytes);
std::string EEPROMEnd(const DumpStamp& stamp);
/// @}

/// What ends a dump that the user has stopped; three times BlankLine follow.
std::string Terminated(const DumpStamp& stamp);

inline constexpr std::string_view BlankLine = "\r\r\n";
inline constexpr int BlankLines = 3;

} // namespace dump
} // namespace tqx
