#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace tqx {

/// The block write that goes to BoardBus::BlockWrite: the data stand at index 3 to count + 2.
using WriteBlock = std::array<std::uint8_t, 41>;

/// The bytes of a block frame or of its running PEC, in bus order.
using FrameBytes = std::array<std::uint8_t, 38>;

/// The bus phases, each at the point that the transfer has reached. A failure raises LinkError.
class BusOperations {
public:
    virtual ~BusOperations() = default;

    virtual void BusStart() = 0;
    virtual void BusStop() = 0;
    /// Ahead of a start that follows earlier traffic.
    virtual void BusRelease() = 0;
    /// Clocks out one byte, most significant bit first.
    virtual void SendBusByte(std::uint8_t value) = 0;
    /// The clock of the slave's acknowledge; its level is dropped.
    virtual void WaitAck() = 0;
    /// The clock of the slave's acknowledge: True when the slave did not acknowledge.
    virtual bool AckStatus() = 0;
    virtual std::uint8_t ReadBusByte() = 0;
    virtual void SendAck() = 0;
    virtual void SendNack() = 0;
};

/// The evaluation board's bus on a printer port.
///
/// Every operation is a call on the link and raises LinkError when it fails. Slave addresses are
/// in 8-bit form with bit 0 clear (58h, 5Ah, 5Ch). A property is a pair of overloads: without an
/// argument it is got, with one it is put.
class BoardBus : public BusOperations {
public:
    virtual std::uint8_t SlaveAddress() = 0;
    virtual void SlaveAddress(std::uint8_t address) = 0;

    /// I/O base address of the printer port that carries the bus.
    virtual std::uint16_t PortAddress() = 0;
    virtual void PortAddress(std::uint16_t address) = 0;

    /// Which of the two board wirings drives the lines.
    virtual bool BoardMode() = 0;
    virtual void BoardMode(bool mode) = 0;

    /// @name Single-byte transfers
    /// @{
    virtual std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) = 0;
    virtual void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) = 0;
    /// @}

    /// What a link makes of these two is its own: False once, ahead of any transfer, and False
    /// after the chip's address pointer was moved.
    /// @{
    virtual void StartupOption(bool option) = 0;
    virtual void ClearPointerFlag(bool flag) = 0;
    /// @}

    /// @name Block transfers, at the chip's address pointer
    /// @{

    /// Take a PEC into the next block transfer.
    virtual void UsePEC(bool use) = 0;
    /// The next block transfer goes to the EEPROM.
    virtual void EEPROMTarget(bool target) = 0;
    /// Pause after each byte of a block write, in seconds.
    virtual void ByteDelay(float seconds) = 0;
    /// Reads 32 bytes. The two constants of the call are AAh and 0Ah; `out` carries nothing that
    /// a caller needs.
    virtual void BlockRead(std::uint8_t first, std::uint8_t second, std::uint8_t& out) = 0;
    /// Sends `count` bytes, frame[3] to frame[count + 2].
    virtual void BlockWrite(std::uint8_t count, const WriteBlock& frame) = 0;
    /// The last read's frame: address, count, then the data at index 2 to count + 1.
    virtual FrameBytes BlockData() = 0;
    /// The running PEC after each byte of the last frame.
    virtual FrameBytes PECTrace() = 0;
    /// The last PEC that was computed.
    virtual std::int16_t PECResult() = 0;
    /// The PEC of the last transfer with PEC was good.
    virtual bool PECOK() = 0;
    /// @}

    /// @name Raw port access
    /// @{
    virtual void PortWrite(std::uint16_t port, std::uint8_t value) = 0;
    virtual std::uint8_t PortRead(std::uint16_t port) = 0;
    /// @}
};

/// EEPROM byte transfers on the board's bus. High bytes run from 80h to 9Fh.
class EEPROMLink {
public:
    virtual ~EEPROMLink() = default;

    /// Reads one byte and leaves the chip's pointer at high:low.
    virtual std::uint8_t ReadEEPROM(std::uint8_t high, std::uint8_t low) = 0;
    /// Does not wait until the chip has programmed the byte: that time is the caller's.
    virtual void WriteEEPROM(std::uint8_t high, std::uint8_t low, std::uint8_t value) = 0;
    /// Clears the 64 bytes of the page at high:low. The third argument is 0; the result carries
    /// nothing.
    virtual std::uint8_t ErasePage(std::uint8_t high, std::uint8_t low, std::uint8_t zero) = 0;
    /// What a link makes of these two is its own: False, then 0, once at the program's start.
    /// @{
    virtual void EEPROMWait(bool wait) = 0;
    virtual void EEPROMDelay(std::int16_t delay) = 0;
    /// @}
};

/// The printer ports of the machine and the board on the selected one.
class PrinterPortLink {
public:
    virtual ~PrinterPortLink() = default;

    /// Ports 0 to PortCount - 1 exist.
    virtual std::uint8_t PortCount() = 0;
    /// Selects a port.
    virtual void PortIndex(std::uint8_t index) = 0;
    /// I/O base address of the selected port.
    virtual std::uint16_t PortAddress() = 0;
    /// True before a long run of reads, False after it.
    virtual void BurstMode(bool on) = 0;

    virtual tqx::BoardBus& BoardBus() = 0;
    virtual tqx::EEPROMLink& EEPROMLink() = 0;
};

/// The machine's own SMBus. Slave addresses are in 7-bit form (2Ch, 2Dh, 2Eh).
class SMBusLink {
public:
    virtual ~SMBusLink() = default;

    virtual std::uint8_t SlaveAddress() = 0;
    virtual void SlaveAddress(std::uint8_t address) = 0;
    /// Base address of the host controller (SMBBA).
    virtual std::uint32_t BaseAddress() = 0;

    virtual std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) = 0;
    virtual void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) = 0;
};

/// Values of LinkServer::ActiveMedium. BusCell::ComsMedium counts the other way round.
/// @{
inline constexpr std::int16_t ActivePrinterPort = 0;
inline constexpr std::int16_t ActiveSMBus = 1;

/// @}

/// The root of the link: all bus traffic of the program runs through it. Sub-objects are fetched
/// afresh at each use and live as long as the root.
class LinkServer {
public:
    virtual ~LinkServer() = default;

    virtual tqx::PrinterPortLink& PrinterPortLink() = 0;
    virtual tqx::SMBusLink& SMBusLink() = 0;

    /// 0 printer port, 1 SMBus.
    virtual std::int16_t ActiveMedium() = 0;
    virtual void ActiveMedium(std::int16_t medium) = 0;
};

/// A LinkServer put together from one link for each medium. It starts on the printer port.
class PartsLinkServer : public LinkServer {
public:
    PartsLinkServer(std::unique_ptr<tqx::PrinterPortLink> printerPort,
                    std::unique_ptr<tqx::SMBusLink> smbus)
        : m_printerPort(std::move(printerPort))
        , m_smbus(std::move(smbus)) {}

    tqx::PrinterPortLink& PrinterPortLink() override { return *m_printerPort; }

    tqx::SMBusLink& SMBusLink() override { return *m_smbus; }

    std::int16_t ActiveMedium() override { return m_activeMedium; }
    void ActiveMedium(std::int16_t medium) override { m_activeMedium = medium; }

private:
    std::unique_ptr<tqx::PrinterPortLink> m_printerPort;
    std::unique_ptr<tqx::SMBusLink> m_smbus;
    std::int16_t m_activeMedium = ActivePrinterPort;
};

/// What the operating system tells of itself.
class OSVersionInfo {
public:
    virtual ~OSVersionInfo() = default;

    /// The build number, in decimal. 950, 1111, 1998, 2222 and 3000 are the systems on which the
    /// machine's SMBus can be reached.
    virtual std::string BuildNumber() = 0;
};

} // namespace tqx
