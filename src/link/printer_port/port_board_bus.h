#pragma once

#include "link/link_server.h"
#include "link/port_link.h"
#include "printer_port/board_lines.h"
#include "printer_port/pport_block_com.h"

#include <chrono>
#include <cstdint>

namespace tqx {

/// BoardBus on the lines of a printer port.
class PortBoardBus : public BoardBus {
public:
    PortBoardBus(BoardLines& board, BoardOptions& options, const LinkSetup& setup);

    std::uint8_t SlaveAddress() override { return m_slaveAddress; }

    void SlaveAddress(std::uint8_t address) override { m_slaveAddress = address; }

    std::uint16_t PortAddress() override;
    void PortAddress(std::uint16_t address) override;

    bool BoardMode() override { return m_boardMode; }

    void BoardMode(bool mode) override;

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override;
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override;

    void StartupOption(bool option) override { m_options.StartupOption = option; }

    void ClearPointerFlag(bool flag) override { m_options.ClearPointerFlag = flag; }

    void UsePEC(bool use) override { m_block.UsePEC(use); }

    void EEPROMTarget(bool target) override { m_options.EEPROMTarget = target; }

    /// Below 0 counts as 0, above 1 second as 1 second.
    void ByteDelay(float seconds) override;
    /// The two constants mean nothing here; `out` is the count that the chip sent.
    void BlockRead(std::uint8_t first, std::uint8_t second, std::uint8_t& out) override;
    void BlockWrite(std::uint8_t count, const WriteBlock& frame) override;
    FrameBytes BlockData() override;
    FrameBytes PECTrace() override;

    std::int16_t PECResult() override { return m_block.PEC(); }

    bool PECOK() override { return m_block.PECOK(); }

    void BusStart() override;
    void BusStop() override;
    void BusRelease() override;
    void SendBusByte(std::uint8_t value) override;
    void WaitAck() override;
    bool AckStatus() override;
    std::uint8_t ReadBusByte() override;
    void SendAck() override;
    void SendNack() override;

    void PortWrite(std::uint16_t port, std::uint8_t value) override;
    std::uint8_t PortRead(std::uint16_t port) override;

private:
    void SendAcknowledged(std::uint8_t value);

    BoardLines& m_board;
    BoardOptions& m_options;
    PPortBlockCom m_block;
    std::uint8_t m_slaveAddress = 0;
    bool m_boardMode = false;
    std::chrono::nanoseconds m_byteDelay{0};
    bool m_blockWriteRuns = false;
};

} // namespace tqx
