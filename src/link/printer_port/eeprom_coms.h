#pragma once

#include "printer_port/line_layer.h"

#include <cstdint>

namespace tqx {

/// One byte transfer to or from the chip's EEPROM, stated on the bus lines.
///
/// The mode bits of register 13h are not part of it, nor is a wait after a write: both are the
/// caller's. A chip that does not answer changes nothing; a read then gives what the line shows.
class EEPROMComs {
public:
    /// The lines must outlive the transfers.
    explicit EEPROMComs(LineLayer& lines);

    /// Reads the byte at HighByte:LowByte and leaves the chip's pointer there.
    std::uint8_t ReadEEPROM();
    /// Sends Data to HighByte:LowByte.
    void WriteEEPROM();

    /// In 8-bit form; bit 0 goes out as each phase needs it.
    void SlaveAddress(std::uint8_t address) { m_slaveAddress = address; }
    std::uint8_t SlaveAddress() const { return m_slaveAddress; }

    void Data(std::uint8_t data) { m_data = data; }
    std::uint8_t Data() const { return m_data; }

    void LowByte(std::uint8_t low) { m_lowByte = low; }
    std::uint8_t LowByte() const { return m_lowByte; }

    /// 80h to 9Fh.
    void HighByte(std::uint8_t high) { m_highByte = high; }
    std::uint8_t HighByte() const { return m_highByte; }

private:
    void StartAtAddress();

    LineLayer& m_lines;
    std::uint8_t m_slaveAddress = 0;
    std::uint8_t m_data = 0;
    std::uint8_t m_lowByte = 0;
    std::uint8_t m_highByte = 0;
};

} // namespace tqx
