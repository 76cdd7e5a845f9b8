#include "chip/chip_registers.h"

#include <algorithm>

namespace tqx::sim {

namespace {

/// A run of registers that come up with the same byte.
struct PowerOnRange {
    std::uint8_t First;
    std::uint8_t Last;
    std::uint8_t Value;
};

constexpr std::uint8_t HottestLimit = 0x7F;  // +127, sign and magnitude
constexpr std::uint8_t ColdestLimit = 0xFF;  // -127
constexpr std::uint8_t FanControlBegin = 40; // degrees

/// What is not named here comes up as 00h.
constexpr std::array PowerOnTable{
    PowerOnRange{chipreg::Config1, chipreg::Config1, chipbit::Monitor},
    PowerOnRange{chipreg::FanDivisors, chipreg::FanDivisors + 1, 0xFF}, // divisor 8 for each fan
    PowerOnRange{0x04, 0x05, 0xFF},                                     // fan outputs fully on
    PowerOnRange{chipreg::IntThermLimit, chipreg::Ext2ThermLimit, HottestLimit},
    PowerOnRange{0x10, 0x12, FanControlBegin},
    PowerOnRange{chipreg::EEPROMMode, chipreg::EEPROMMode, 0x01}, // read mode
    PowerOnRange{chipreg::CompanyID, chipreg::CompanyID, 0x41},
    PowerOnRange{chipreg::Revision, chipreg::Revision, 0x42},
    PowerOnRange{0x40, 0x41, HottestLimit}, // external temperatures
    PowerOnRange{0x42, 0x47, 0xFF},         // rails, high
    PowerOnRange{0x48, 0x49, ColdestLimit}, // external temperatures
    PowerOnRange{0x50, 0x57, 0xFF},         // Ain0 to Ain7, high
    PowerOnRange{0x60, 0x67, 0xFF},         // fans
    PowerOnRange{0x68, 0x68, HottestLimit}, // internal temperature
    PowerOnRange{0x69, 0x69, ColdestLimit},
    PowerOnRange{0x6A, 0x6A, 0xFF}, // VBatt, high
    PowerOnRange{0x6C, 0x6C, 0xFF}, // Ain8, high
};

} // namespace

RegisterBytes PowerOnRegisters() {
    RegisterBytes registers{};
    for (const PowerOnRange& range : PowerOnTable) {
        std::fill(registers.begin() + range.First, registers.begin() + range.Last + 1, range.Value);
    }
    return registers;
}

} // namespace tqx::sim
