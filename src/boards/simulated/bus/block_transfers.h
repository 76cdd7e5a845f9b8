#pragma once

#include "bus/byte_slave.h"
#include "simulated/chip.h"

#include <array>
#include <cstdint>

namespace tqx::sim {

/// The chip's address pointer: a register or an EEPROM address. It stays in its space: behind the
/// last address comes the first.
class ChipPointer {
public:
    /// The memory must outlive the pointer.
    explicit ChipPointer(ChipMemory& memory);

    void SelectRegister(std::uint8_t reg);
    /// `high` from 80h to 9Fh.
    void SelectEEPROM(std::uint8_t high, std::uint8_t low);

    std::uint8_t Read() const;
    void Write(std::uint8_t value) const;
    void Advance();

private:
    ChipMemory& m_memory;
    std::uint16_t m_address = 0;
    bool m_eeprom = false;
};

/// True for the first byte of an EEPROM address.
constexpr bool IsEEPROMHighByte(std::uint8_t value) {
    return value >= 0x80 && value <= 0x9F;
}

/// A block write as the chip takes it in: count, data, and perhaps a PEC. The byte after the
/// announced data is the PEC; the chip cannot know ahead of it whether one comes. So the data wait
/// for the PEC to prove good, or for the stop in its place.
class IncomingBlock {
public:
    /// `address`: the address byte, which counts in the PEC.
    explicit IncomingBlock(std::uint8_t address);

    /// The next byte after the command. True acknowledges. Good data go to the pointer, which is
    /// left behind them.
    bool Take(std::uint8_t value, ChipPointer& pointer);

    /// The transfer has come to its stop. A block that is short of data is dropped.
    void Stop(ChipPointer& pointer);

    /// False while not even the count has come.
    bool Begun() const { return m_state != State::Count; }

private:
    enum class State : std::uint8_t { Count, Data, PEC, Over };

    bool TakeCount(std::uint8_t value);
    void Store(ChipPointer& pointer);

    State m_state = State::Count;
    std::uint8_t m_pec;
    std::uint8_t m_count = 0;
    std::uint8_t m_taken = 0;
    std::array<std::uint8_t, BlockSize> m_data{};
};

/// A block read as the chip gives it out: the count, 32 data bytes from the pointer on, and the
/// PEC over address, count and data. What is read after the PEC is FFh.
class OutgoingBlock {
public:
    /// `address`: the address byte of the read, which counts in the PEC.
    explicit OutgoingBlock(std::uint8_t address);

    /// The next byte. Each data byte moves the pointer on.
    std::uint8_t Next(ChipPointer& pointer);

private:
    std::uint8_t m_pec;
    int m_position = 0;
};

} // namespace tqx::sim
