#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

/// A dump file as it has to be, put together byte by byte and apart from the program's own way.
namespace tqx::test {

using ReadRAM = std::function<std::uint8_t(int address)>;
using ReadROM = std::function<std::uint8_t(int high, int low)>;

inline std::string ExpectedRAMBlock(const std::string& time, const std::string& date,
                                    const ReadRAM& read, int rows = 32) {
    std::string text = "Start of RAM Dump  ****  " + time + "  ****  " + date + " *********\r\n";
    for (int i = 0; i < 8 * rows; ++i) {
        char item[16];
        std::snprintf(item, sizeof item, "%s%X:%X%s", i % 8 == 0 ? "\r" : "", i, read(i),
                      i % 8 == 7 ? "\r\n" : "\t");
        text += item;
    }
    if (rows == 32) {
        text += "End of RAM Dump  ****  " + time + "  ****  " + date + " ***********\r\n";
        text += "\r\r\n\r\r\n\r\r\n";
    }
    return text;
}

inline std::string ExpectedEEPROMBlock(const std::string& time, const std::string& date,
                                       const ReadROM& read, int rows = 1024) {
    std::string text =
        "\rStart of EEPROM Dump  ****  " + time + "  ****  " + date + " ********\r\n";
    for (int i = 0; i < 8 * rows; ++i) {
        const int high = 0x80 + i / 256;
        char item[32];
        std::snprintf(item, sizeof item, "%s%X,%X:%X%s", i % 8 == 0 ? "\r" : "", high, i % 256,
                      read(high, i % 256), i % 8 == 7 ? "\r\n" : "    \t");
        text += item;
    }
    if (rows == 1024) {
        text += "\rEnd of EEPROM Dump  ****  " + time + "  ****  " + date + " **************\r\n";
        text += "\r\r\n\r\r\n\r\r\n";
    }
    return text;
}

inline std::string ExpectedStop(const std::string& time, const std::string& date) {
    return "*** Dump terminated by user ***   " + time + "  ****  " + date +
           " ***\r\n\r\r\n\r\r\n\r\r\n";
}

} // namespace tqx::test
