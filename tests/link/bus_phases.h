#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

/// Transfers as the accesses of a printer port, in the letters of ScriptedBoard, for comparison
/// with what the link did.
namespace tqx::test::phases {

inline const std::string Start = "HdsdL";
inline const std::string Stop = "LdsdH";
inline const std::string Release = "LdhdH";
inline const std::string BitIn = "dhHdrh";
inline const std::string ByteIn =
    "L" + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn + BitIn;
inline const std::string Ack = "dLsdLL";
inline const std::string Nack = "hHdhL";

/// Bytes out, each with the clock of its acknowledge.
inline std::string Out(std::initializer_list<std::uint8_t> bytes) {
    std::string accesses;
    for (const std::uint8_t byte : bytes) {
        for (int mask = 0x80; mask != 0; mask /= 2) {
            accesses += (byte & mask) != 0 ? "dhdHdhdL" : "dLsdLL";
        }
        accesses += "dhHdrsL";
    }
    return accesses;
}

} // namespace tqx::test::phases
