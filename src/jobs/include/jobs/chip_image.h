#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tqx {

/// What is known of the bytes of a chip: from a file, or read from the chip itself.
struct ChipImage {
    static constexpr std::size_t RegisterCount = 256;
    static constexpr std::size_t EEPROMSize = 8192;

    std::array<std::optional<std::uint8_t>, RegisterCount> Registers;
    /// By its address from 0 on: high byte 80h low byte 00h is the first.
    std::array<std::optional<std::uint8_t>, EEPROMSize> EEPROM;

    bool HasRegisters() const;
    bool HasEEPROM() const;
};

/// Where an EEPROM byte stands, as a dump has it: "80,11".
std::string EEPROMPlace(std::size_t address);

/// The image in a file, told by its content: a register dump (the last one of each kind, where
/// several stand in the file), Intel HEX with addresses from 0000 or from 8000, or else plain bytes
/// of the EEPROM from its beginning on. What is broken raises FileError with `name` and the line.
ChipImage ImageIn(std::string_view content, const std::string& name);

/// The EEPROM as Intel HEX, in lines of 16 bytes from address 0000 on.
std::string IntelHex(const ChipImage& image);

/// A byte in which two images differ.
struct ChipDifference {
    bool EEPROM;
    std::size_t Address;
    std::uint8_t First;
    std::uint8_t Second;
};

/// Where both images have a byte and these differ, registers first.
std::vector<ChipDifference> Differences(const ChipImage& first, const ChipImage& second);

} // namespace tqx
