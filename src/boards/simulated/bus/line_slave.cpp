#include "bus/line_slave.h"

#include <utility>

namespace tqx::sim {

namespace {

constexpr int ByteBits = 8;
constexpr int BitsWithAck = ByteBits + 1;

} // namespace

LineSlave::LineSlave(ByteSlave& slave)
    : m_slave(slave) {}

void LineSlave::Drive(LineLevels master) {
    const bool clockBefore = std::exchange(m_master, master).Clock;
    const bool dataBefore = m_line;
    if (clockBefore && !master.Clock) {
        ClockFell();
    }
    m_line = master.Data && m_drive;
    if (!clockBefore && master.Clock) {
        ClockRose();
    } else if (clockBefore && master.Clock && dataBefore != m_line) {
        if (m_line) {
            Stopped();
        } else {
            Started();
        }
    }
}

int LineSlave::TakeBitTimes() {
    return std::exchange(m_bitTimes, 0);
}

void LineSlave::ClockRose() {
    ++m_bitTimes;
    ListenToBit();
    ++m_bits;
    if (m_phase == Phase::Receive) {
        m_byte = static_cast<std::uint8_t>(m_byte << 1 | (m_line ? 1 : 0));
    } else if (m_phase == Phase::AckIn) {
        m_masterAck = !m_line;
    }
}

/// Follows what is on the line, without regard to this slave's part in it.
void LineSlave::ListenToBit() {
    m_passing = m_passing << 1 | (m_line ? 1 : 0);
    if (++m_passed == BitsWithAck) {
        m_slave.Passed(static_cast<std::uint8_t>(m_passing >> 1), (m_passing & 1) == 0);
        m_passing = 0;
        m_passed = 0;
    }
}

void LineSlave::ClockFell() {
    switch (m_phase) {
    case Phase::Idle:
        break;
    case Phase::Receive:
        if (m_bits == ByteBits) {
            TakeByte();
        }
        break;
    case Phase::AckOut:
        AfterAckOut();
        break;
    case Phase::Send:
        PutNextBit();
        break;
    case Phase::AckIn:
        if (m_masterAck) {
            BeginByteOut();
        } else {
            Release(Phase::Idle);
        }
        break;
    }
}

void LineSlave::Started() {
    m_bitTimes += m_busFree ? 1 : 0;
    m_busFree = false;
    m_addressNext = true;
    m_passing = 0;
    m_passed = 0;
    Release(Phase::Receive);
}

void LineSlave::Stopped() {
    m_busFree = true;
    Release(Phase::Idle);
    m_slave.Stop();
}

void LineSlave::TakeByte() {
    bool acknowledged = false;
    if (m_addressNext) {
        m_addressNext = false;
        m_reading = (m_byte & ReadBit) != 0;
        acknowledged = m_slave.Start(m_byte);
    } else {
        acknowledged = m_slave.Write(m_byte);
    }
    Release(acknowledged ? Phase::AckOut : Phase::Idle);
    m_drive = !acknowledged;
}

void LineSlave::AfterAckOut() {
    if (m_reading) {
        BeginByteOut();
    } else {
        Release(Phase::Receive);
    }
}

void LineSlave::BeginByteOut() {
    m_phase = Phase::Send;
    m_bits = 0;
    m_byte = m_slave.Read();
    PutNextBit();
}

void LineSlave::PutNextBit() {
    if (m_bits == ByteBits) {
        Release(Phase::AckIn);
    } else {
        m_drive = (m_byte >> (ByteBits - 1 - m_bits) & 1) != 0;
    }
}

/// Lets the data line go and waits for the first bit of the next phase.
void LineSlave::Release(Phase next) {
    m_phase = next;
    m_drive = true;
    m_bits = 0;
}

} // namespace tqx::sim
