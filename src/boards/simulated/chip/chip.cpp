#include "simulated/chip.h"

#include "chip/chip_registers.h"
#include "chip/eeprom.h"
#include "chip/gpio_lines.h"
#include "chip/input_monitor.h"
#include "chip/plant.h"

namespace tqx::sim {

namespace {

constexpr int LinesPerRegister = 8;
constexpr int ThermLine = 16; // the line on the THERM pin
constexpr int FanLines = 8;   // the first lines stand on the tachometer pins

} // namespace

struct Chip::Parts {
    explicit Parts(std::uint32_t seed)
        : Surroundings(seed) {}

    RegisterBytes Registers = PowerOnRegisters();
    Plant Surroundings;
    InputMonitor Monitor{Surroundings, Registers};
    EEPROM Memory;
    GPIOLines Lines;
    bool ChassisOpen = false;
    bool Intrusion = false;
    bool WriteProtectPin = false;
};

Chip::Chip(std::uint32_t seed)
    : m_parts(std::make_unique<Parts>(seed)) {}

Chip::~Chip() = default;

void Chip::SetTime(std::chrono::nanoseconds time) {
    m_parts->Monitor.SetTime(time);
}

void Chip::Reset() {
    m_parts->Registers = PowerOnRegisters();
    m_parts->Lines.Reset();
    m_parts->Intrusion = m_parts->ChassisOpen;
}

std::uint8_t Chip::Read(std::uint8_t reg) {
    switch (reg) {
    case chipreg::Status1:
    case chipreg::Status1 + 1:
    case chipreg::Status1 + 2:
        return m_parts->Monitor.StatusOf(reg);
    case chipreg::EEPROMMode:
        return ModeRegister();
    case chipreg::Status4:
        return ReadStatus4();
    case chipreg::Status5:
        return LevelsFrom(0);
    case chipreg::Status6:
        return LevelsFrom(LinesPerRegister);
    default:
        break;
    }
    const bool measured =
        reg == chipreg::IntTemp || (reg >= chipreg::FirstValue && reg <= chipreg::LastValue);
    return measured ? m_parts->Monitor.ValueOf(reg) : m_parts->Registers[reg];
}

void Chip::Write(std::uint8_t reg, std::uint8_t value) {
    if (IsReadOnly(reg)) {
        return;
    }
    switch (reg) {
    case chipreg::Config1:
        WriteConfig1(value);
        return;
    case chipreg::Config3:
        WriteConfig3(value);
        return;
    case chipreg::EEPROMMode:
        WriteModeRegister(value);
        return;
    case chipreg::Status4:
        DriveLine(ThermLine, (value & chipbit::GPIO16Level) != 0);
        return;
    case chipreg::Status5:
        DriveFrom(0, value);
        return;
    case chipreg::Status6:
        DriveFrom(LinesPerRegister, value);
        return;
    default:
        m_parts->Registers[reg] = value;
    }
}

std::uint8_t Chip::ReadEEPROM(std::uint16_t address) {
    return m_parts->Memory.Read(address);
}

void Chip::WriteEEPROM(std::uint16_t address, std::uint8_t value) {
    m_parts->Memory.Write(address, value, EEPROMModeOf(ModeRegister()));
}

Plant& Chip::ThePlant() {
    return m_parts->Surroundings;
}

void Chip::ChassisOpen(bool open) {
    m_parts->ChassisOpen = open;
    m_parts->Intrusion = m_parts->Intrusion || open;
}

bool Chip::ChassisOpen() const {
    return m_parts->ChassisOpen;
}

void Chip::WriteProtectPin(bool set) {
    m_parts->WriteProtectPin = set;
}

bool Chip::WriteProtectPin() const {
    return m_parts->WriteProtectPin;
}

void Chip::GPIOLevel(int line, bool level) {
    m_parts->Lines.SetOutside(line, level);
}

bool Chip::GPIOLevel(int line) const {
    return m_parts->Lines.Level(line, SetupOf(line));
}

bool Chip::OutsideLevel(int line) const {
    return m_parts->Lines.Outside(line);
}

PinUse Chip::UseOf(int line) const {
    if (!IsGPIO(line)) {
        return PinUse::OtherFunction;
    }
    return SetupOf(line).Output ? PinUse::Output : PinUse::Input;
}

bool Chip::IsGPIO(int line) const {
    if (line < FanLines) {
        return (m_parts->Registers[chipreg::Config2] >> line & 1) != 0;
    }
    return line != ThermLine ||
           (m_parts->Registers[chipreg::Config3] & chipbit::GPIO16NotTherm) != 0;
}

GPIOSetup Chip::SetupOf(int line) const {
    if (line == ThermLine) {
        const std::uint8_t config = m_parts->Registers[chipreg::Config3];
        return {(config & chipbit::GPIO16Output) != 0, (config & chipbit::GPIO16ActiveHigh) != 0};
    }
    const int pair =
        m_parts->Registers.at(chipreg::GPIOConfig + static_cast<std::size_t>(line / 4)) >>
        line % 4 * 2;
    return {(pair & 1) != 0, (pair & 2) != 0};
}

/// The levels of eight lines; a pin that is no GPIO at present reads 0.
std::uint8_t Chip::LevelsFrom(int firstLine) const {
    int levels = 0;
    for (int i = 0; i < LinesPerRegister; ++i) {
        if (IsGPIO(firstLine + i) && GPIOLevel(firstLine + i)) {
            levels |= 1 << i;
        }
    }
    return static_cast<std::uint8_t>(levels);
}

void Chip::DriveFrom(int firstLine, std::uint8_t levels) {
    for (int i = 0; i < LinesPerRegister; ++i) {
        DriveLine(firstLine + i, (levels >> i & 1) != 0);
    }
}

/// A pin with another function at present keeps what its line was told.
void Chip::DriveLine(int line, bool level) {
    if (IsGPIO(line)) {
        m_parts->Lines.Drive(line, SetupOf(line), level);
    }
}

std::uint8_t Chip::ReadStatus4() const {
    std::uint8_t status = m_parts->Monitor.StatusOf(chipreg::Status4);
    const bool overTherm = m_parts->Monitor.OverTherm();
    if (overTherm && !IsGPIO(ThermLine)) {
        status |= chipbit::ThermStatus;
    }
    if (overTherm && (m_parts->Registers[chipreg::Config1] & chipbit::AutomaticFans) != 0) {
        status |= chipbit::FanControlStatus;
    }
    if (m_parts->Intrusion) {
        status |= chipbit::IntrusionStatus;
    }
    if (IsGPIO(ThermLine) && GPIOLevel(ThermLine)) {
        status |= chipbit::GPIO16Level;
    }
    return status;
}

std::uint8_t Chip::ModeRegister() const {
    const std::uint8_t stored = m_parts->Registers[chipreg::EEPROMMode];
    return m_parts->WriteProtectPin ? stored | chipbit::WriteProtect : stored;
}

/// While the pin holds the protect bit the stored one stays: a host that reads the register and
/// writes it back would otherwise keep the protection when the jumper has gone.
void Chip::WriteModeRegister(std::uint8_t value) {
    const std::uint8_t kept = m_parts->WriteProtectPin ? chipbit::WriteProtect : 0;
    std::uint8_t& stored = m_parts->Registers[chipreg::EEPROMMode];
    stored = static_cast<std::uint8_t>((stored & kept) | (value & ~kept));
}

void Chip::WriteConfig1(std::uint8_t value) {
    const std::uint8_t before = m_parts->Registers[chipreg::Config1];
    if ((before & ~value & chipbit::Monitor) != 0) {
        m_parts->Monitor.Hold();
    }
    m_parts->Registers[chipreg::Config1] = value;
}

void Chip::WriteConfig3(std::uint8_t value) {
    m_parts->Registers[chipreg::Config3] = value;
    if ((value & chipbit::ClearIntrusion) != 0 && !m_parts->ChassisOpen) {
        m_parts->Intrusion = false;
    }
}

} // namespace tqx::sim
