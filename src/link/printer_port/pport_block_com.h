#pragma once

#include "link/link_root.h"
#include "link/link_server.h"

#include <cstdint>

namespace tqx {

/// One SMBus block transfer, with or without packet error checking, stated byte by byte on the byte
/// operations of a bus. This is the definition of the bus phases, the frames and their PEC.
///
/// Frames count from index 0 in bus order: a write is address, command, count, data; a read, from
/// the repeated start on, is address, count, data, and the PEC that the chip sent. An index of 38
/// or more raises std::out_of_range. Errors of the bus pass through.
///
/// A slave that does not acknowledge stops nothing: the phases run to their end, and only the PEC
/// tells that something went wrong.
class PPortBlockCom {
public:
    /// The setup is where a notice goes; bus and setup must outlive the engine.
    PPortBlockCom(BusOperations& bus, const LinkSetup& setup);

    /// Result of the last PEC test; transfers without PEC leave it.
    bool PECOK() const { return m_pecOK; }

    /// The running PEC after the byte at the same index of the last frame that was computed. A
    /// shorter frame leaves the tail of a longer one in place.
    std::uint8_t BlockPECData(std::uint8_t byteNumber) const { return m_trace.at(byteNumber); }

    const FrameBytes& Trace() const { return m_trace; }

    /// Take a PEC into the transfer.
    void UsePEC(bool use) { m_usePEC = use; }
    bool UsePEC() const { return m_usePEC; }

    /// Sends the ByteCount data bytes from index 3 on. Raises std::out_of_range, with nothing
    /// sent, when they do not fit the frame (more than 35).
    void BlockWrite();

    /// Reads 32 data bytes to index 2 and up, and the byte after them to index 34.
    ///
    /// A chip that announces another count ends the transfer where it stands, with no acknowledge
    /// and no stop: the user is told, ByteCount is that count, and the data and the PEC of the last
    /// read stay.
    void BlockRead();

    void CommandCode(std::uint8_t code) { m_commandCode = code; }
    std::uint8_t CommandCode() const { return m_commandCode; }

    /// Data bytes of a write; a read overwrites it with the count that the chip sent.
    void ByteCount(std::uint8_t count) { m_byteCount = count; }
    std::uint8_t ByteCount() const { return m_byteCount; }

    /// In 8-bit form. Bit 0 goes out as each phase needs it, but enters a write's PEC as it stands.
    void SlaveAddress(std::uint8_t address) { m_slaveAddress = address; }
    std::uint8_t SlaveAddress() const { return m_slaveAddress; }

    /// Puts a byte into the write frame; data start at index 3.
    void SetupBlockData(std::uint8_t dataByte, std::uint8_t data);

    /// A byte of the read frame; data start at index 2.
    std::uint8_t RetrieveBlockData(std::uint8_t dataByte) const { return m_readFrame.at(dataByte); }

    const FrameBytes& ReadFrame() const { return m_readFrame; }

    /// Computes the PEC of the write frame (direction -1) or the read frame (0), and its trace.
    /// Any other direction gives 0 and leaves the trace. All of them refresh the frame heads.
    std::uint8_t PECValue(std::int16_t direction);

    /// The PEC that was computed last.
    std::int16_t PEC() const { return m_pec; }

private:
    void FillWriteHead();
    void SendAcknowledged(std::uint8_t value);

    BusOperations& m_bus;
    const LinkSetup& m_setup;
    FrameBytes m_writeFrame{};
    FrameBytes m_readFrame{};
    FrameBytes m_trace{};
    std::int16_t m_pec = 0;
    std::uint8_t m_slaveAddress = 0;
    std::uint8_t m_byteCount = 0;
    std::uint8_t m_commandCode = 0;
    bool m_usePEC = false;
    bool m_pecOK = false;
};

} // namespace tqx
