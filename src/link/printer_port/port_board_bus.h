#pragma once

#include "link/link_server.h"
#include "printer_port/pport_block_com.h"
#include "printer_port/printer_ports.h"

#include <chrono>
#include <cstdint>

namespace tqx {

/// The bus phases on lines that are held already, for a transfer made of them.
class HeldLines : public BusOperations {
public:
    /// From now on the phases go to `lines`, with a pause behind each acknowledge.
    void Take(LineLayer& lines, std::chrono::nanoseconds pause) {
        m_lines = &lines;
        m_pause = pause;
    }

    void BusStart() override { m_lines->LineStart(); }

    void BusStop() override { m_lines->LineStop(); }

    void BusRelease() override { m_lines->ReleaseLines(); }

    void SendBusByte(std::uint8_t value) override { m_lines->ClockOutByte(value); }

    void WaitAck() override { AckStatus(); }

    bool AckStatus() override;

    std::uint8_t ReadBusByte() override { return m_lines->ClockInByte(); }

    void SendAck() override { m_lines->SendAck(); }

    void SendNack() override { m_lines->ClockNack(); }

private:
    LineLayer* m_lines = nullptr;
    std::chrono::nanoseconds m_pause{0};
};

/// BoardBus on the lines of a printer port. What the program tells the board for which a bare port
/// has no use goes nowhere.
class PortBoardBus : public BoardBus {
public:
    PortBoardBus(PrinterPorts& ports, const LinkSetup& setup);

    std::uint8_t SlaveAddress() override { return m_slaveAddress; }
    void SlaveAddress(std::uint8_t address) override { m_slaveAddress = address; }

    std::uint16_t PortAddress() override { return m_ports.PortAddress(); }
    void PortAddress(std::uint16_t address) override { m_ports.SelectAddress(address); }

    bool BoardMode() override { return m_boardMode; }
    void BoardMode(bool mode) override;

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override;
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override;

    void StartupOption(bool) override {}

    /// The chip needs no help with its pointer.
    void ClearPointerFlag(bool) override {}

    void UsePEC(bool use) override { m_block.UsePEC(use); }

    /// The chip knows the target by its pointer.
    void EEPROMTarget(bool) override {}

    /// Below 0 counts as 0, above 1 second as 1 second.
    void ByteDelay(float seconds) override;
    /// The two constants mean nothing here; `out` is the count that the chip sent.
    void BlockRead(std::uint8_t first, std::uint8_t second, std::uint8_t& out) override;
    void BlockWrite(std::uint8_t count, const WriteBlock& frame) override;

    FrameBytes BlockData() override { return m_block.ReadFrame(); }

    FrameBytes PECTrace() override { return m_block.Trace(); }

    std::int16_t PECResult() override { return m_block.PEC(); }

    bool PECOK() override { return m_block.PECOK(); }

    void BusStart() override { Run(&LineLayer::LineStart); }

    void BusStop() override { Run(&LineLayer::LineStop); }

    void BusRelease() override { Run(&LineLayer::ReleaseLines); }

    void SendBusByte(std::uint8_t value) override;

    void WaitAck() override { AckStatus(); }

    bool AckStatus() override { return Run(&LineLayer::ClockAck); }

    std::uint8_t ReadBusByte() override { return Run(&LineLayer::ClockInByte); }

    void SendAck() override { Run(&LineLayer::SendAck); }

    void SendNack() override { Run(&LineLayer::ClockNack); }

    void PortWrite(std::uint16_t port, std::uint8_t value) override { m_ports.Write(port, value); }

    std::uint8_t PortRead(std::uint16_t port) override { return m_ports.Read(port); }

private:
    /// A byte operation, which is a transfer by itself.
    template <typename Result>
    Result Run(Result (LineLayer::*operation)()) {
        return m_ports.Transfer([operation](LineLayer& lines) { return (lines.*operation)(); });
    }

    PrinterPorts& m_ports;
    HeldLines m_lines;
    PPortBlockCom m_block;
    std::uint8_t m_slaveAddress = 0;
    bool m_boardMode = false;
    std::chrono::nanoseconds m_byteDelay{0};
};

} // namespace tqx
