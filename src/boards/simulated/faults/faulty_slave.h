#pragma once

#include "bus/byte_slave.h"
#include "simulated/chip.h"
#include "simulated/faults.h"

#include <cstdint>

namespace tqx::sim {

/// A bus slave that may not answer, and whose blocks may be short or carry a damaged PEC.
class FaultySlave : public ForwardingSlave {
public:
    /// `address`: the slave's own, in 8-bit form. Both objects must outlive this.
    FaultySlave(ByteSlave& next, std::uint8_t address, Faults& faults);

    /// The slave's own address, from the next start on.
    void Address(std::uint8_t address) { m_address = address; }

    bool Start(std::uint8_t address) override;
    bool Write(std::uint8_t value) override;
    std::uint8_t Read() override;
    void Stop() override;

private:
    bool BlockWritePECNext() const;

    Faults& m_faults;
    std::uint8_t m_address;
    bool m_inTransfer = false;
    bool m_silent = false;
    int m_position = 0; // bytes since the last address
    std::uint8_t m_command = 0;
    std::uint8_t m_count = 0;
};

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

} // namespace tqx::sim
