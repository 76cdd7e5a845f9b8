#include "gpio_config/gpio_config_frm.h"

#include <controls/combos.h>
#include <device/bench.h>

#include <QPushButton>
#include <QScopedValueRollback>

namespace tqx {
namespace {

/// Entries of the lists.
/// @{
constexpr int OutputEntry = 0;
constexpr int InputEntry = 1;
constexpr int HighEntry = 0;
constexpr int LowEntry = 1;
constexpr int FanGPIOEntry = 0; // "GPIO", "Fan"
constexpr int FanEntry = 1;
constexpr int ThermEntry = 0; // "Therm", "GPIO"
constexpr int ThermGPIOEntry = 1;
/// @}

constexpr int ThermSelector = gpio::FanLineCount;

/// The line whose fields are the `j`th of four in configuration register `r`.
std::size_t LineOf(int r, int j) {
    const int line = gpio::LinesInRegister * r + j;
    return static_cast<std::size_t>(line);
}

bool StandsOn(const HandCombo* combo, int entry) {
    return combo->currentIndex() == entry;
}

void SetDirection(HandCombo* combo, bool output) {
    combo->setCurrentIndex(output ? OutputEntry : InputEntry);
}

void SetPolarity(HandCombo* combo, bool high) {
    combo->setCurrentIndex(high ? HighEntry : LowEntry);
}

} // namespace

GPIOConfigFRM::GPIOConfigFRM(Bench& bench)
    : ToolWindow("GPIOConfigFRM", "GPIO Control Panel")
    , m_bench(bench) {
    MakeLayout();
    const QScopedValueRollback loading(m_loading, true);
    FillCombos();
    ReadEnables();
    ReadDirections();
}

void GPIOConfigFRM::FillCombos() {
    for (std::size_t i = 0; i < gpio::LineCount; ++i) {
        m_direction[i]->addItems({"Output", "Input"});
        m_polarity[i]->addItems({"High", "Low"});
    }
    for (std::size_t i = 0; i < gpio::FanLineCount; ++i) {
        m_function[i]->addItems({"GPIO", "Fan"});
    }
    m_function[ThermSelector]->addItems({"Therm", "GPIO"});
}

void GPIOConfigFRM::ReadEnables() {
    const unsigned enables = m_bench.Coms.ReadRegisterByte(reg::Config2);
    for (int i = 0; i < gpio::FanLineCount; ++i) {
        const bool isGPIO = (enables >> i & 1U) != 0;
        m_function[static_cast<std::size_t>(i)]->setCurrentIndex(isGPIO ? FanGPIOEntry : FanEntry);
    }
    for (int i = 0; i < gpio::FanLineCount; ++i) {
        EnableLine(i);
    }
    const bool isGPIO = (m_bench.Coms.ReadRegisterByte(reg::Config3) & gpio::ThermEnable) != 0;
    m_function[ThermSelector]->setCurrentIndex(isGPIO ? ThermGPIOEntry : ThermEntry);
}

void GPIOConfigFRM::ReadDirections() {
    for (int r = 0; r < gpio::ConfigRegisterCount; ++r) {
        const unsigned config = m_bench.Coms.ReadRegisterByte(gpio::ConfigRegister(r));
        for (int j = 0; j < gpio::LinesInRegister; ++j) {
            const std::size_t i = LineOf(r, j);
            SetDirection(m_direction[i], (config & gpio::DirectionBit(j)) != 0);
            SetPolarity(m_polarity[i], (config & gpio::PolarityBit(j)) != 0);
        }
    }
    const unsigned therm = m_bench.Coms.ReadRegisterByte(reg::Config3);
    SetDirection(m_direction[gpio::ThermLine], (therm & gpio::ThermDirection) != 0);
    SetPolarity(m_polarity[gpio::ThermLine], (therm & gpio::ThermPolarity) != 0);
}

void GPIOConfigFRM::ReadAgain() {
    const QScopedValueRollback loading(m_loading, true);
    ReadDirections();
}

void GPIOConfigFRM::Changed() {
    if (!m_loading) {
        WriteEnables();
        WriteDirections();
    }
}

void GPIOConfigFRM::WriteEnables() {
    unsigned enables = 0;
    for (int i = 0; i < gpio::FanLineCount; ++i) {
        enables |= IsGPIO(i) ? 1U << i : 0;
        EnableLine(i);
    }
    m_bench.Coms.WriteRegisterByte(reg::Config2, static_cast<std::uint8_t>(enables));
    WriteTherm(static_cast<std::uint8_t>(~gpio::ThermEnable),
               IsGPIO(gpio::ThermLine) ? gpio::ThermEnable : 0);
}

void GPIOConfigFRM::WriteDirections() {
    for (int r = 0; r < gpio::ConfigRegisterCount; ++r) {
        m_bench.Coms.WriteRegisterByte(gpio::ConfigRegister(r), ConfigOf(r));
    }
    unsigned bits = 0;
    if (StandsOn(m_direction[gpio::ThermLine], OutputEntry)) {
        bits |= gpio::ThermDirection;
    }
    if (StandsOn(m_polarity[gpio::ThermLine], HighEntry)) {
        bits |= gpio::ThermPolarity;
    }
    WriteTherm(static_cast<std::uint8_t>(~(gpio::ThermDirection | gpio::ThermPolarity)),
               static_cast<std::uint8_t>(bits));
}

/// Replaces all bits of Config3 but those `kept`.
void GPIOConfigFRM::WriteTherm(std::uint8_t kept, std::uint8_t bits) {
    const std::uint8_t value = m_bench.Coms.ReadRegisterByte(reg::Config3);
    m_bench.Coms.WriteRegisterByte(reg::Config3, static_cast<std::uint8_t>((value & kept) | bits));
}

std::uint8_t GPIOConfigFRM::ConfigOf(int r) const {
    unsigned config = 0;
    for (int j = 0; j < gpio::LinesInRegister; ++j) {
        const std::size_t i = LineOf(r, j);
        config |= StandsOn(m_direction[i], OutputEntry) ? gpio::DirectionBit(j) : 0;
        config |= StandsOn(m_polarity[i], HighEntry) ? gpio::PolarityBit(j) : 0;
    }
    return static_cast<std::uint8_t>(config);
}

bool GPIOConfigFRM::IsGPIO(int line) const {
    return line == gpio::ThermLine
               ? StandsOn(m_function[ThermSelector], ThermGPIOEntry)
               : StandsOn(m_function[static_cast<std::size_t>(line)], FanGPIOEntry);
}

/// Lets the line's direction and polarity be edited only while it works as a GPIO line.
void GPIOConfigFRM::EnableLine(int line) {
    const auto i = static_cast<std::size_t>(line);
    m_direction[i]->setEnabled(IsGPIO(line));
    m_polarity[i]->setEnabled(IsGPIO(line));
}

} // namespace tqx
