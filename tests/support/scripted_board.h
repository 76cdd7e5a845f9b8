#pragma once

#include <link/link_error.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

namespace tqx::test {

/// A printer port with a bus slave of a few lines behind it. The
/// slave acknowledges every byte and sends what a test has laid out. The port writes down the
/// accesses and what they mean on the bus.
class ScriptedBoard : public ParallelPort {
public:
    /// `boardMode` tells which values the line states have on the port.
    explicit ScriptedBoard(bool boardMode = false, std::uint16_t base = 0x378)
        : m_states(boardMode ? "\xB0\xB4\xBC\xB8" : "\xB3\xB2\xB0\xB1")
        , m_base(base) {}

    /// False: nothing is on the bus, so that the data line is the master's alone.
    bool Answers = true;
    /// The byte that the slave does not acknowledge, counted from the start of the run; -1 none.
    int Refused = -1;
    /// What the slave sends when it is read from.
    std::deque<std::uint8_t> ToSend;
    /// Data writes that go through before one raises LinkError, and how many do so then; -1: all
    /// go through.
    int WritesLeft = -1;
    int Failures = 1;
    /// Refuses to be held.
    bool Busy = false;

    bool Held = false;
    std::chrono::nanoseconds Delayed{0};

    /// Every access by its letter: H both lines high, s data low and clock high, L both low, h data
    /// high and clock low, ? no line state, r a look at the status, d a delay.
    std::string TakeAccesses() { return std::exchange(m_accesses, {}); }

    /// The bus as it was seen: "S" and "P" for start and stop, bytes with "+" for an acknowledge
    /// and "-" for none, "[" and "]" where the port is held and let go.
    std::string TakeBus() { return std::exchange(m_bus, {}); }

    std::uint16_t BaseAddress() override { return m_base; }

    void WriteData(std::uint8_t value) override {
        if (WritesLeft == 0 && Failures > 0) {
            --Failures;
            throw LinkError("cannot write to the port", "it was unplugged", "Plug it in.");
        }
        WritesLeft -= WritesLeft > 0 ? 1 : 0;
        const std::size_t state = m_states.find(static_cast<char>(value));
        m_accesses += state == std::string_view::npos ? '?' : "HsLh"[state];
        const bool clock = state <= 1;
        // A write that moves both lines moves the data line while the clock is low.
        if (m_clock && !clock) {
            ClockFell();
        }
        MasterData(state == 0 || state == 3);
        if (!m_clock && clock) {
            ClockRose();
        }
    }

    std::uint8_t ReadStatus() override {
        m_accesses += 'r';
        return DataLine() ? 0xFF : 0xEF;
    }

    void Hold(bool hold) override {
        if (hold && Busy) {
            throw LinkError("cannot take the port", "it is in use", "Close the other program.");
        }
        Held = hold;
        Note(hold ? "[" : "]");
    }

    void Delay(std::chrono::nanoseconds time) override {
        m_accesses += 'd';
        Delayed += time;
    }

private:
    bool DataLine() const { return m_masterData && !m_slavePulls; }

    void MasterData(bool data) {
        const bool before = DataLine();
        m_masterData = data;
        if (!m_clock || before == DataLine()) {
            return;
        }
        m_sending = false;
        m_bits = 0;
        m_started = before;
        m_addressed = false;
        Note(before ? "S" : "P");
    }

    void ClockRose() {
        m_clock = true;
        if (!m_started) {
            return;
        }
        ++m_bits;
        if (m_bits <= 8) {
            m_byte = static_cast<std::uint8_t>(m_byte << 1 | (DataLine() ? 1 : 0));
            return;
        }
        char text[4];
        std::snprintf(text, sizeof text, "%02X%c", m_byte, DataLine() ? '-' : '+');
        Note(text);
        if (!m_addressed) {
            m_addressed = true;
            m_sending = Answers && (m_byte & 1) != 0;
        } else if (DataLine()) {
            m_sending = false;
        }
    }

    void ClockFell() {
        m_clock = false;
        m_bits %= 9;
        m_slavePulls = false;
        if (m_bits == 8 && !(m_sending && m_addressed)) {
            m_slavePulls = Answers && m_received++ != Refused;
        } else if (m_sending && m_bits < 8) {
            m_slavePulls = !NextBit();
        }
    }

    bool NextBit() {
        if (m_bits == 0) {
            m_out = 0xFF;
            if (!ToSend.empty()) {
                m_out = ToSend.front();
                ToSend.pop_front();
            }
        }
        return (m_out >> (7 - m_bits) & 1) != 0;
    }

    void Note(const std::string& word) { m_bus += (m_bus.empty() ? "" : " ") + word; }

    std::string_view m_states; ///< the values of H, s, L and h
    std::uint16_t m_base;
    std::string m_accesses;
    std::string m_bus;
    bool m_clock = true;
    bool m_masterData = true;
    bool m_slavePulls = false;
    bool m_started = false;
    bool m_addressed = false;
    bool m_sending = false;
    int m_bits = 0;
    int m_received = 0;
    std::uint8_t m_byte = 0;
    std::uint8_t m_out = 0xFF;
};

} // namespace tqx::test
