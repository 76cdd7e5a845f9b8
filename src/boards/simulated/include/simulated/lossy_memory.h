#pragma once

#include "simulated/chip_memory.h"
#include "simulated/faults.h"

namespace tqx {

/// The chip's memory with writes to the EEPROM that may be lost.
class LossyMemory : public ChipMemory {
public:
    /// Both must outlive this.
    LossyMemory(ChipMemory& memory, Faults& faults)
        : m_memory(memory)
        , m_faults(faults) {}

    std::uint8_t Read(std::uint8_t reg) override { return m_memory.Read(reg); }

    void Write(std::uint8_t reg, std::uint8_t value) override { m_memory.Write(reg, value); }

    std::uint8_t ReadEEPROM(std::uint16_t address) override { return m_memory.ReadEEPROM(address); }

    void WriteEEPROM(std::uint16_t address, std::uint8_t value) override {
        if (!m_faults.Strikes(Fault::LostEEPROMWrite)) {
            m_memory.WriteEEPROM(address, value);
        }
    }

private:
    ChipMemory& m_memory;
    Faults& m_faults;
};

} // namespace tqx
