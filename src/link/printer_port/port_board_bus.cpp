#include "printer_port/port_board_bus.h"

#include "printer_port/slave_address.h"

#include <algorithm>
#include <cstddef>

namespace tqx {

namespace {

constexpr std::uint8_t BlockWriteCommand = 0xA0;
constexpr std::uint8_t BlockReadCommand = 0xA1;

/// Where the data of a block write begin, in the frame of the call as in that of the engine.
constexpr int FirstDataByte = 3;

/// Sets a flag for as long as a scope lasts.
class FlagScope {
public:
    explicit FlagScope(bool& flag)
        : m_flag(flag) {
        m_flag = true;
    }

    ~FlagScope() { m_flag = false; }

    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& m_flag;
};

template <typename ByteAt>
FrameBytes AllOf(ByteAt byteAt) {
    FrameBytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = byteAt(static_cast<std::uint8_t>(i));
    }
    return bytes;
}

} // namespace

PortBoardBus::PortBoardBus(BoardLines& board, BoardOptions& options, const LinkSetup& setup)
    : m_board(board)
    , m_options(options)
    , m_block(*this, setup) {}

std::uint16_t PortBoardBus::PortAddress() {
    return m_board.Ports.PortAddress();
}

void PortBoardBus::PortAddress(std::uint16_t address) {
    m_board.Ports.SelectAddress(address);
}

void PortBoardBus::BoardMode(bool mode) {
    if (mode != m_boardMode) {
        m_boardMode = mode;
        m_board.Wiring(WiringOf(mode));
    }
}

std::uint8_t PortBoardBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    return m_board.Transfer([&] {
        BusStart();
        SendAcknowledged(WriteAddress(address));
        SendAcknowledged(reg);
        BusRelease();
        BusStart();
        SendAcknowledged(ReadAddress(address));
        const std::uint8_t value = ReadBusByte();
        SendNack();
        BusStop();
        return value;
    });
}

void PortBoardBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    m_board.Transfer([&] {
        BusStart();
        SendAcknowledged(WriteAddress(address));
        SendAcknowledged(reg);
        SendAcknowledged(value);
        BusStop();
    });
}

void PortBoardBus::ByteDelay(float seconds) {
    const std::chrono::duration<float> pause(seconds > 0 ? std::min(seconds, 1.0F) : 0.0F);
    m_byteDelay = std::chrono::duration_cast<std::chrono::nanoseconds>(pause);
}

void PortBoardBus::BlockRead(std::uint8_t /*first*/, std::uint8_t /*second*/, std::uint8_t& out) {
    m_block.SlaveAddress(m_slaveAddress);
    m_block.CommandCode(BlockReadCommand);
    m_board.Transfer([this] { m_block.BlockRead(); });
    out = m_block.ByteCount();
}

void PortBoardBus::BlockWrite(std::uint8_t count, const WriteBlock& frame) {
    m_block.SlaveAddress(m_slaveAddress);
    m_block.CommandCode(BlockWriteCommand);
    m_block.ByteCount(count);
    for (int i = FirstDataByte; i < count + FirstDataByte; ++i) {
        m_block.SetupBlockData(static_cast<std::uint8_t>(i), frame.at(static_cast<std::size_t>(i)));
    }
    const FlagScope running(m_blockWriteRuns);
    m_board.Transfer([this] { m_block.BlockWrite(); });
}

FrameBytes PortBoardBus::BlockData() {
    return AllOf([this](std::uint8_t i) { return m_block.RetrieveBlockData(i); });
}

FrameBytes PortBoardBus::PECTrace() {
    return AllOf([this](std::uint8_t i) { return m_block.BlockPECData(i); });
}

void PortBoardBus::BusStart() {
    m_board.Transfer([this] { m_board.Lines.LineStart(); });
}

void PortBoardBus::BusStop() {
    m_board.Transfer([this] { m_board.Lines.LineStop(); });
}

void PortBoardBus::BusRelease() {
    m_board.Transfer([this] { m_board.Lines.ReleaseLines(); });
}

void PortBoardBus::SendBusByte(std::uint8_t value) {
    m_board.Transfer([this, value] { m_board.Lines.ClockOutByte(value); });
}

void PortBoardBus::WaitAck() {
    AckStatus();
}

bool PortBoardBus::AckStatus() {
    return m_board.Transfer([this] {
        const bool refused = m_board.Lines.ClockAck();
        if (m_blockWriteRuns && m_byteDelay > std::chrono::nanoseconds::zero()) {
            m_board.Ports.LineDelay(m_byteDelay);
        }
        return refused;
    });
}

std::uint8_t PortBoardBus::ReadBusByte() {
    return m_board.Transfer([this] { return m_board.Lines.ClockInByte(); });
}

void PortBoardBus::SendAck() {
    m_board.Transfer([this] { m_board.Lines.SendAck(); });
}

void PortBoardBus::SendNack() {
    m_board.Transfer([this] { m_board.Lines.ClockNack(); });
}

void PortBoardBus::PortWrite(std::uint16_t port, std::uint8_t value) {
    m_board.Ports.Write(port, value);
}

std::uint8_t PortBoardBus::PortRead(std::uint16_t port) {
    return m_board.Ports.Read(port);
}

void PortBoardBus::SendAcknowledged(std::uint8_t value) {
    SendBusByte(value);
    WaitAck();
}

} // namespace tqx
