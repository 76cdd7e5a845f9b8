#include "bus/line_slave.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

namespace tqx::sim {
namespace {

/// Writes down what it hears as "S58 C3 P ", acknowledges everything and gives out A5h.
class Listener : public ByteSlave {
public:
    bool Start(std::uint8_t address) override {
        Heard += 'S';
        return Write(address);
    }

    bool Write(std::uint8_t value) override {
        char text[4];
        std::snprintf(text, sizeof text, "%02X ", value);
        Heard += text;
        return true;
    }

    std::uint8_t Read() override { return 0xA5; }

    void Stop() override { Heard += "P "; }

    std::string Heard;
};

class LineSlaveTest : public testing::Test {
protected:
    void Put(bool data, bool clock) { Lines.Drive({data, clock}); }

    void Start() {
        Put(true, true);
        Put(false, true);
        Put(false, false);
    }

    void Stop() {
        Put(false, false);
        Put(false, true);
        Put(true, true);
    }

    /// Changes data and clock in one write, both ways.
    void Bit(bool level) {
        Put(level, true);
        Put(!level, false);
    }

    void Byte(int value) {
        for (int bit = 7; bit >= 0; --bit) {
            Bit((value >> bit & 1) != 0);
        }
    }

    /// The level of the data line in one clock, with the master's side as given.
    bool Clock(bool master = true) {
        Put(master, false);
        Put(master, true);
        const bool level = Lines.DataLine();
        Put(master, false);
        return level;
    }

    Listener Heard;
    LineSlave Lines{Heard};
};

TEST_F(LineSlaveTest, TakesBytesAndAcknowledgesThem) {
    Start();
    Byte(0x58);
    EXPECT_FALSE(Clock());
    Byte(0xC3);
    EXPECT_FALSE(Clock());
    EXPECT_TRUE(Lines.DataLine()); // let go once the clock has fallen
    Stop();
    EXPECT_EQ(Heard.Heard, "S58 C3 P ");
    EXPECT_EQ(Lines.TakeBitTimes(), 20);
}

TEST_F(LineSlaveTest, AStartInTheMiddleOfAByteBeginsAnewAndAStopEndsTheTransfer) {
    Start();
    Byte(0x58);
    Clock();
    Bit(true);
    Bit(false);
    Start();
    Byte(0x5A);
    EXPECT_FALSE(Clock());
    Bit(true);
    Stop();
    Byte(0x00);
    EXPECT_EQ(Heard.Heard, "S58 S5A P ");
}

} // namespace
} // namespace tqx::sim
