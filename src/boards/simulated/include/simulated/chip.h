#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

namespace tqx::sim {

struct GPIOSetup;
class Plant;

/// The chip's two address spaces, as a bus transfer sees them.
class ChipMemory {
public:
    virtual ~ChipMemory() = default;

    virtual std::uint8_t Read(std::uint8_t reg) = 0;
    virtual void Write(std::uint8_t reg, std::uint8_t value) = 0;

    /// EEPROM addresses run from 0 to 8191.
    virtual std::uint8_t ReadEEPROM(std::uint16_t address) = 0;
    /// Programs or erases, as the mode register says, or does nothing.
    virtual void WriteEEPROM(std::uint16_t address, std::uint8_t value) = 0;
};

/// What the pin of a GPIO line does at present: the first nine lines share theirs.
enum class PinUse : std::uint8_t { OtherFunction, Input, Output };

/// The TQX7716 as a pure model: registers, measured inputs with limits and status, GPIO lines,
/// chassis intrusion and EEPROM. It knows no bus and no clock; time comes in through SetTime.
///
/// A register without a function of its own stores what is written to it.
class Chip : public ChipMemory {
public:
    /// The first eight share their pins with fans, the last with THERM.
    static constexpr int GPIOLineCount = 17;

    explicit Chip(std::uint32_t seed = 1);
    ~Chip() override;

    Chip(const Chip&) = delete;
    Chip& operator=(const Chip&) = delete;

    /// Time since power came on.
    void SetTime(std::chrono::nanoseconds time);

    /// Power has gone and come back: registers as at power on. The EEPROM keeps its content, and
    /// an open chassis its alarm.
    void Reset();

    std::uint8_t Read(std::uint8_t reg) override;
    void Write(std::uint8_t reg, std::uint8_t value) override;
    std::uint8_t ReadEEPROM(std::uint16_t address) override;
    void WriteEEPROM(std::uint16_t address, std::uint8_t value) override;

    /// Where a measured input is forced to a value, and released.
    Plant& ThePlant();

    /// The chassis switch. Opening it latches the alarm, which the host clears through Config3
    /// while the chassis is closed.
    void ChassisOpen(bool open);
    bool ChassisOpen() const;

    /// The write-protect pin, which a jumper sets. While it is set nothing is programmed or erased,
    /// bit 3 of the EEPROM's mode register reads 1 and a write leaves that bit as it was. The bit
    /// protects by itself as well.
    /// @{
    void WriteProtectPin(bool set);
    bool WriteProtectPin() const;
    /// @}

    /// Puts a level on GPIO line 0 to 16 from outside, which shows while the line is an input.
    void GPIOLevel(int line, bool level);
    /// The level on the line, driven by the chip or from outside.
    bool GPIOLevel(int line) const;

    /// The level that the outside puts on the line.
    bool OutsideLevel(int line) const;

    PinUse UseOf(int line) const;

private:
    bool IsGPIO(int line) const;
    GPIOSetup SetupOf(int line) const;
    std::uint8_t LevelsFrom(int firstLine) const;
    void DriveFrom(int firstLine, std::uint8_t levels);
    void DriveLine(int line, bool level);
    std::uint8_t ReadStatus4() const;
    std::uint8_t ModeRegister() const;
    void WriteModeRegister(std::uint8_t value);
    void WriteConfig1(std::uint8_t value);
    void WriteConfig3(std::uint8_t value);

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace tqx::sim
