#include "blocks/transfer.h"

#include "blocks/frame.h"
#include "blocks/grid.h"
#include "blocks/pec_results.h"
#include "blocks/start.h"

#include <controls/number_text.h>
#include <device/bench.h>
#include <device/eeprom_map.h>
#include <device/register_addresses.h>

#include <QPushButton>

#include <algorithm>
#include <span>
#include <utility>

namespace tqx {
namespace {

constexpr std::uint8_t WriteCommand = 0xA0;
constexpr std::uint8_t ReadCommand = 0xA1;

/// Values of "EEPROM 3" (13h).
constexpr std::uint8_t ReadMode = eeprom::ReadBit | eeprom::ClockExtendBit;
constexpr std::uint8_t WriteMode = eeprom::WriteBit | eeprom::ClockExtendBit;

/// The chip takes this long for a byte of a block write, in seconds.
constexpr float WriteByteDelay = 0.001F;

/// Where the data begin: in the frame of a write, and in that of a read.
constexpr std::size_t WriteHead = 3;
constexpr std::size_t ReadHead = 2;

/// The data part of a frame or of its PEC trace.
std::span<const std::uint8_t> Data(const FrameBytes& frame, std::size_t head, unsigned count) {
    return std::span(frame).subspan(head, count);
}

} // namespace

BlockTransfer::BlockTransfer(Bench& bench, MessageDoor message, const BlockControls& controls)
    : m_bench(bench)
    , m_message(std::move(message))
    , m_panel(controls) {}

BoardBus& BlockTransfer::Bus() {
    return m_bench.Link->PrinterPortLink().BoardBus();
}

void BlockTransfer::Read() {
    m_bench.Link->PrinterPortLink().BurstMode(true);
    m_panel.ReadButton.setEnabled(false);
    if (m_panel.Frame.UsePEC()) {
        m_panel.Results.Wait();
    }
    m_panel.Grid.EnableAll();
    m_panel.Frame.Command(ReadCommand);
    m_panel.Frame.ByteCount(GridColumns);
    ClearBlockDisplay();
    if (m_panel.Start.AccessEEPROM()) {
        WriteEEPROMMode(ReadMode);
    }
    SetBlockStart();
    Bus().UsePEC(m_panel.Frame.UsePEC());
    const bool whole = ReceiveBlock();
    if (whole) {
        m_panel.Grid.ShowReading(Data(Bus().BlockData(), ReadHead, m_panel.Frame.ByteCount()));
    }
    if (m_panel.Frame.UsePEC()) {
        whole ? ShowReadPEC() : m_panel.Results.Show(false);
    }
    Bus().ByteDelay(0);
    m_panel.ReadButton.setEnabled(true);
    m_bench.Link->PrinterPortLink().BurstMode(false);
}

bool BlockTransfer::ReceiveBlock() {
    std::uint8_t count = 0;
    Bus().BlockRead(0xAA, 0x0A, count);
    return count == GridColumns;
}

void BlockTransfer::ShowReadPEC() {
    const FrameBytes trace = Bus().PECTrace();
    m_panel.Grid.ShowPEC(Data(trace, ReadHead, m_panel.Frame.ByteCount()));
    // The command of a read is not part of its PEC, and its read-out stays empty.
    m_panel.Frame.DeviceAddressPEC(trace[0]);
    m_panel.Frame.ByteCountPEC(trace[1]);
    m_panel.Frame.FinalPEC(static_cast<std::uint8_t>(Bus().PECResult()));
    m_panel.Results.Show(Bus().PECOK());
}

void BlockTransfer::Write() {
    ClearBlockDisplay();
    m_panel.Frame.Command(WriteCommand);
    KeepByteCountInBlock();
    m_panel.WriteButton.setEnabled(false);
    m_panel.ReadButton.setEnabled(false);
    if (m_panel.Frame.UsePEC()) {
        m_panel.Results.Wait();
    }
    Bus().ByteDelay(WriteByteDelay);
    Bus().UsePEC(m_panel.Frame.UsePEC());
    SendBlock();
    if (m_panel.Start.AccessEEPROM()) {
        WriteEEPROMMode(ReadMode);
    }
    m_panel.WriteButton.setEnabled(true);
    m_panel.ReadButton.setEnabled(true);
    Bus().ByteDelay(0);
    Bus().EEPROMTarget(false);
}

void BlockTransfer::SendBlock() {
    const WriteBlock frame = MakeFrame();
    Bus().EEPROMTarget(m_panel.Start.AccessEEPROM());
    if (WriteProtected()) {
        m_message("Error", "The EEPROM write protect bit is set, the EEPROM cannot be written to.",
                  1);
        return;
    }
    WriteEEPROMMode(WriteMode);
    SetBlockStart();
    Bus().BlockWrite(static_cast<std::uint8_t>(m_panel.Frame.ByteCount()), frame);
    if (m_panel.Frame.UsePEC()) {
        ShowWritePEC();
    }
    ResetReadColumns();
}

void BlockTransfer::ShowWritePEC() {
    const FrameBytes trace = Bus().PECTrace();
    m_panel.Frame.FinalPEC(static_cast<std::uint8_t>(Bus().PECResult()));
    m_panel.Grid.ShowPEC(Data(trace, WriteHead, m_panel.Frame.ByteCount()));
    m_panel.Frame.DeviceAddressPEC(trace[0]);
    m_panel.Frame.CommandPEC(trace[1]);
    m_panel.Frame.ByteCountPEC(trace[2]);
    m_panel.Results.Show(Bus().PECOK());
}

WriteBlock BlockTransfer::MakeFrame() const {
    WriteBlock frame{};
    for (unsigned i = 0; i < m_panel.Frame.ByteCount(); ++i) {
        const BlockByteEntry& entry = m_panel.Grid.WriteEntry(static_cast<int>(i) + 1);
        frame[WriteHead + i] = static_cast<std::uint8_t>(entry.Value());
    }
    return frame;
}

void BlockTransfer::SetBlockStart() {
    if (m_panel.Start.AccessEEPROM()) {
        // The byte is dropped: the read serves to leave the chip's pointer behind.
        m_bench.Link->PrinterPortLink().EEPROMLink().ReadEEPROM(m_panel.Start.HighByte(),
                                                                m_panel.Start.LowByte());
    } else {
        // The register keeps its value, and the chip's pointer stands at it.
        const std::uint8_t reg = m_panel.Start.LowByte();
        const std::uint8_t value = m_bench.Coms.ReadRegisterByte(reg);
        m_bench.Coms.WriteRegisterByte(reg, value);
    }
    Bus().ClearPointerFlag(false);
}

void BlockTransfer::WriteEEPROMMode(std::uint8_t mode) {
    Bus().WriteByte(Bus().SlaveAddress(), reg::EEPROM3, mode);
}

bool BlockTransfer::WriteProtected() {
    // Read twice: the second byte counts.
    Bus().ReadByte(Bus().SlaveAddress(), reg::EEPROM3);
    const std::uint8_t mode = Bus().ReadByte(Bus().SlaveAddress(), reg::EEPROM3);
    return (mode & eeprom::WriteProtectBit) != 0;
}

void BlockTransfer::KeepByteCountInBlock() {
    // A count that was typed and not confirmed has not been looked at yet.
    const unsigned count = m_panel.Frame.ByteCount();
    const unsigned kept = std::clamp<unsigned>(count, 1, GridColumns);
    if (kept != count) {
        m_panel.Frame.ByteCount(kept);
    }
}

void BlockTransfer::EnterByteCount(const QString& text) {
    if (text.toUInt(nullptr, 16) > GridColumns) {
        m_panel.Frame.ByteCount(GridColumns);
    }
    ResetReadColumns();
}

void BlockTransfer::ClearBlockDisplay() {
    m_panel.Grid.ClearReading();
    m_panel.Grid.ClearPEC();
    m_panel.Frame.ClearPEC();
}

void BlockTransfer::ResetReadColumns() {
    m_panel.Grid.ClearReading();
    m_panel.Grid.EnableReading(
        static_cast<int>(std::min<unsigned>(m_panel.Frame.ByteCount(), GridColumns)));
}

} // namespace tqx
