#include "chip/input_monitor.h"

#include <algorithm>

namespace tqx::sim {

namespace {

/// A temperature channel's registers beside its limits.
struct TemperatureExtras {
    ChipInput Input;
    std::uint8_t Offset;
    std::uint8_t ThermLimit;
};

constexpr std::array Temperatures{
    TemperatureExtras{ChipInput::IntTemp, chipreg::IntOffset, chipreg::IntThermLimit},
    TemperatureExtras{ChipInput::Ext1Temp, chipreg::Ext1Offset, chipreg::Ext1ThermLimit},
    TemperatureExtras{ChipInput::Ext2Temp, chipreg::Ext2Offset, chipreg::Ext2ThermLimit},
};

constexpr int FanNumber(ChipInput fan) {
    return static_cast<int>(fan) - static_cast<int>(ChipInput::Fan0);
}

} // namespace

InputMonitor::InputMonitor(const Plant& plant, const RegisterBytes& registers)
    : m_plant(plant)
    , m_registers(registers) {}

void InputMonitor::Hold() {
    std::transform(ChipInputs.begin(), ChipInputs.end(), m_held.begin(),
                   [this](const InputFacts& facts) { return Measure(facts); });
}

std::uint8_t InputMonitor::ValueOf(std::uint8_t reg) const {
    const auto measured =
        std::find_if(ChipInputs.begin(), ChipInputs.end(), [this, reg](const InputFacts& facts) {
            return facts.Value == reg && (facts.Kind == InputKind::Fan || HasPin(facts.Input));
        });
    return measured == ChipInputs.end() ? 0x00 : ByteOf(*measured);
}

std::uint8_t InputMonitor::StatusOf(std::uint8_t status) const {
    int bits = 0;
    for (const InputFacts& facts : ChipInputs) {
        if (facts.Status == status && HasPin(facts.Input) && OutOfLimits(facts)) {
            bits |= 1 << facts.StatusBit;
        }
    }
    return static_cast<std::uint8_t>(bits);
}

bool InputMonitor::OverTherm() const {
    return std::any_of(Temperatures.begin(), Temperatures.end(), [this](const auto& channel) {
        return HasPin(channel.Input) && DegreesOf(ByteOf(FactsOf(channel.Input))) >
                                            DegreesOf(m_registers[channel.ThermLimit]);
    });
}

/// Whether the pins that this input shares are its own at present.
bool InputMonitor::HasPin(ChipInput input) const {
    const bool volts = (m_registers[chipreg::Config1] & chipbit::VoltsNotExt2) != 0;
    switch (input) {
    case ChipInput::Ext2Temp:
        return !volts;
    case ChipInput::Ain8:
    case ChipInput::Ain9:
        return volts;
    default:
        return FactsOf(input).Kind != InputKind::Fan ||
               (m_registers[chipreg::Config2] >> FanNumber(input) & 1) == 0;
    }
}

std::uint8_t InputMonitor::Measure(const InputFacts& facts) const {
    switch (facts.Kind) {
    case InputKind::Temperature:
        return MeasureTemperature(facts);
    case InputKind::Fan:
        return FanCount(m_plant.Value(facts.Input, m_time), DivisorOf(facts.Input));
    case InputKind::Voltage:
        break;
    }
    return VoltageCount(facts, m_plant.Value(facts.Input, m_time));
}

std::uint8_t InputMonitor::ByteOf(const InputFacts& facts) const {
    if (facts.Kind == InputKind::Fan && !HasPin(facts.Input)) {
        return 0xFF;
    }
    const bool measuring = (m_registers[chipreg::Config1] & chipbit::Monitor) != 0;
    return measuring ? Measure(facts) : m_held.at(static_cast<std::size_t>(facts.Input));
}

std::uint8_t InputMonitor::MeasureTemperature(const InputFacts& facts) const {
    const std::uint8_t offset = Temperatures.at(static_cast<std::size_t>(facts.Input)).Offset;
    return TemperatureByte(m_plant.Value(facts.Input, m_time) + DegreesOf(m_registers[offset]));
}

int InputMonitor::DivisorOf(ChipInput fan) const {
    const int number = FanNumber(fan);
    const int fields = m_registers.at(chipreg::FanDivisors + static_cast<std::size_t>(number / 4));
    return 1 << (fields >> number % 4 * 2 & 3);
}

bool InputMonitor::OutOfLimits(const InputFacts& facts) const {
    const std::uint8_t value = ByteOf(facts);
    const std::uint8_t high = m_registers[facts.HighLimit];
    const std::uint8_t low = m_registers[facts.LowLimit];
    switch (facts.Kind) {
    case InputKind::Temperature:
        return DegreesOf(value) > DegreesOf(high) || DegreesOf(value) < DegreesOf(low);
    case InputKind::Fan:
        return value > high; // a long count is a slow fan
    case InputKind::Voltage:
        break;
    }
    return value > high || value < low;
}

} // namespace tqx::sim
