#include "printer_port/line_layer.h"

#include <array>

namespace tqx {

/// A line state to put out, a bit delay, or a look at the data line.
enum class LineLayer::Step : std::uint8_t {
    BothHigh,
    DataLowClockHigh,
    BothLow,
    DataHighClockLow,
    Delay,
    ReadData,
};

struct LineLayer::Sequences {
    using enum Step;

    static constexpr std::array Start{BothHigh, Delay, DataLowClockHigh, Delay, BothLow};
    static constexpr std::array Stop{BothLow, Delay, DataLowClockHigh, Delay, BothHigh};
    static constexpr std::array Release{BothLow, Delay, DataHighClockLow, Delay, BothHigh};
    static constexpr std::array One{Delay, DataHighClockLow, Delay, BothHigh,
                                    Delay, DataHighClockLow, Delay, BothLow};
    static constexpr std::array Zero{Delay, BothLow, DataLowClockHigh, Delay, BothLow, BothLow};
    static constexpr std::array Ack{Delay,    DataHighClockLow, BothHigh, Delay,
                                    ReadData, DataLowClockHigh, BothLow};
    static constexpr std::array Nack{DataHighClockLow, BothHigh, Delay, DataHighClockLow, BothLow};
    static constexpr std::array BeforeByteIn{BothLow};
    static constexpr std::array BitIn{Delay, DataHighClockLow, BothHigh,
                                      Delay, ReadData,         DataHighClockLow};
    static constexpr std::array ClockOn{DataHighClockLow, Delay, BothHigh, Delay, ReadData};
    static constexpr std::array StartAndStop{DataLowClockHigh, Delay, BothHigh};
};

LineLayer::LineLayer(ParallelPort& port, const BoardWiring& wiring, const LinkSetup& setup)
    : m_port(port)
    , m_wiring(wiring)
    , m_setup(setup) {}

void LineLayer::LineStart() {
    ControlBits = LineControlBits;
    Run(Sequences::Start);
}

void LineLayer::LineStop() {
    Run(Sequences::Stop);
}

void LineLayer::ParkLines() {
    // A slave that acknowledges its address and then sends 00h holds the line for nine clocks; the
    // tenth is the one that finds it free.
    constexpr int mostClocks = 10;
    for (int clock = 0; clock < mostClocks && !Run(Sequences::ClockOn); ++clock) {
    }
    Run(Sequences::StartAndStop);
}

void LineLayer::ReleaseLines() {
    Run(Sequences::Release);
}

void LineLayer::ClockOutByte(std::uint8_t value) {
    for (int bit = 7; bit >= 0; --bit) {
        if ((value >> bit & 1) != 0) {
            Run(Sequences::One);
        } else {
            Run(Sequences::Zero);
        }
    }
}

void LineLayer::SendAcknowledged(std::uint8_t value) {
    ClockOutByte(value);
    ClockAck();
}

bool LineLayer::ClockAck() {
    return Run(Sequences::Ack);
}

std::uint8_t LineLayer::ClockInByte() {
    Run(Sequences::BeforeByteIn);
    std::uint8_t value = 0;
    for (int bit = 7; bit >= 0; --bit) {
        if (Run(Sequences::BitIn)) {
            value |= 1U << bit;
        }
    }
    return value;
}

void LineLayer::SendAck() {
    Run(Sequences::Zero);
}

void LineLayer::ClockNack() {
    Run(Sequences::Nack);
}

/// Gives the level that the data line had when a step looked at it.
bool LineLayer::Run(std::span<const Step> steps) {
    bool level = false;
    for (const Step step : steps) {
        switch (step) {
        case Step::BothHigh:
            Put(m_wiring.BothHigh);
            break;
        case Step::DataLowClockHigh:
            Put(m_wiring.DataLowClockHigh);
            break;
        case Step::BothLow:
            Put(m_wiring.BothLow);
            break;
        case Step::DataHighClockLow:
            Put(m_wiring.DataHighClockLow);
            break;
        case Step::Delay:
            Pause(BitDelayRound * (m_setup.BitDelayCount + 1));
            break;
        case Step::ReadData:
            level = (m_port.ReadStatus() & DataLineStatusBit) != 0;
            break;
        }
    }
    return level;
}

} // namespace tqx
