#include "faults/faulty_slave.h"

namespace tqx::sim {

namespace {

/// Flips a bit, as noise would.
constexpr std::uint8_t Damaged(std::uint8_t value) {
    return value ^ 0x10;
}

} // namespace

FaultySlave::FaultySlave(ByteSlave& next, std::uint8_t address, Faults& faults)
    : ForwardingSlave(next)
    , m_faults(faults)
    , m_address(address) {}

bool FaultySlave::Start(std::uint8_t address) {
    const bool reads = (address & ReadBit) != 0;
    if ((address & ~ReadBit) == m_address && (!reads || !m_inTransfer)) {
        m_silent = m_faults.Strikes(Fault::NoAnswer);
        m_command = 0;
    }
    m_inTransfer = true;
    m_position = 0;
    return !m_silent && ForwardingSlave::Start(address);
}

bool FaultySlave::Write(std::uint8_t value) {
    if (BlockWritePECNext() && m_faults.Strikes(Fault::WrongPEC)) {
        value = Damaged(value);
    }
    if (m_position == 0) {
        m_command = value;
    } else if (m_position == 1) {
        m_count = value;
    }
    ++m_position;
    return ForwardingSlave::Write(value);
}

std::uint8_t FaultySlave::Read() {
    const std::uint8_t value = ForwardingSlave::Read();
    const int position = m_position++;
    if (m_command != BlockReadCommand) {
        return value;
    }
    if (position == 0 && m_faults.Strikes(Fault::ShortCount)) {
        return value - 1;
    }
    if (position == BlockSize + 1 && m_faults.Strikes(Fault::WrongPEC)) {
        return Damaged(value);
    }
    return value;
}

void FaultySlave::Stop() {
    m_inTransfer = false;
    m_silent = false;
    m_command = 0;
    ForwardingSlave::Stop();
}

/// Command and count stand ahead of the data.
bool FaultySlave::BlockWritePECNext() const {
    return m_command == BlockWriteCommand && m_position >= 2 && m_position == m_count + 2;
}

} // namespace tqx::sim
