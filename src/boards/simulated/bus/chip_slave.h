#pragma once

#include "bus/block_transfers.h"
#include "bus/byte_slave.h"

#include <cstdint>
#include <optional>

namespace tqx::sim {

/// The chip's side of the bus protocol.
///
/// The first byte after a write address selects a register. A first byte of 80h to 9Fh together
/// with the second selects an EEPROM address, so those registers can be read but not written.
/// Further bytes are data. A0h begins a block write; A1h followed by a repeated start and a read is
/// a block read; both work at the pointer.
///
/// A byte transfer leaves the pointer at the byte that it accessed last; a second byte of the same
/// transfer moves it on by one first. A block leaves the pointer behind its last byte.
class ChipSlave : public ByteSlave {
public:
    /// `address` in 8-bit form with bit 0 clear. The memory must outlive the slave.
    ChipSlave(ChipMemory& memory, std::uint8_t address);

    /// From the next start on.
    void Address(std::uint8_t address) { m_address = address; }

    bool Start(std::uint8_t address) override;
    bool Write(std::uint8_t value) override;
    std::uint8_t Read() override;
    void Stop() override;

private:
    /// What the next byte of the transfer is.
    enum class Phase : std::uint8_t { Idle, Command, EEPROMLow, Data, BlockIn, BlockOut };

    void TakeCommand(std::uint8_t command);
    void StepOn();

    ChipPointer m_pointer;
    std::uint8_t m_address;
    Phase m_phase = Phase::Idle;
    std::uint8_t m_command = 0;
    bool m_accessed = false; // in this transfer, a byte at the pointer
    std::optional<IncomingBlock> m_incoming;
    std::optional<OutgoingBlock> m_outgoing;
};

} // namespace tqx::sim
