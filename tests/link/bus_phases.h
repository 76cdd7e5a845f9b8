#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tqx::test {

/// Writes transfers out as the accesses of a printer port, from a table of line states of its own,
/// for comparison with what the link did.
///
/// The table's letters: H both lines high, s data low and clock high, L both low, h data high and
/// clock low, d one bit delay, r a look at the status register.
class BusPhases {
public:
    /// `boardMode` tells which values the four states have on the port.
    explicit BusPhases(bool boardMode)
        : m_boardMode(boardMode) {}

    BusPhases& Start() { return Add("HdsdL"); }

    BusPhases& Stop() { return Add("LdsdH"); }

    BusPhases& Release() { return Add("LdhdH"); }

    BusPhases& Acknowledged(std::initializer_list<std::uint8_t> bytes) {
        for (const std::uint8_t byte : bytes) {
            for (int mask = 0x80; mask != 0; mask /= 2) {
                Add((byte & mask) != 0 ? "dhdHdhdL" : "dLsdLL");
            }
            Add("dhHdrsL");
        }
        return *this;
    }

    BusPhases& ByteIn() {
        Add("L");
        for (int bit = 0; bit < 8; ++bit) {
            Add("dhHdrh");
        }
        return *this;
    }

    BusPhases& Ack() { return Add("dLsdLL"); }

    BusPhases& Nack() { return Add("hHdhL"); }

    operator const std::string&() const { return m_accesses; }

private:
    BusPhases& Add(std::string_view states) {
        for (const char state : states) {
            m_accesses += m_accesses.empty() ? "" : " ";
            m_accesses += Access(state);
        }
        return *this;
    }

    std::string Access(char state) const {
        switch (state) {
        case 'H':
            return m_boardMode ? "B0" : "B3";
        case 's':
            return m_boardMode ? "B4" : "B2";
        case 'L':
            return m_boardMode ? "BC" : "B0";
        case 'h':
            return m_boardMode ? "B8" : "B1";
        default:
            return {state};
        }
    }

    bool m_boardMode;
    std::string m_accesses;
};

} // namespace tqx::test
