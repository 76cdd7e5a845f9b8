#include "jobs/register_dump.h"

#include "appended_file.h"

#include <device/eeprom_map.h>
#include <link/link_error.h>

namespace tqx {
namespace {

constexpr int RegisterCount = 256;
constexpr int RAMRows = RegisterCount / dump::RowSize;
constexpr int EEPROMRows = eeprom::BlockCount * eeprom::BlockSize / dump::RowSize;

void WriteBlankLines(AppendedFile& file) {
    for (int line = 0; line < dump::BlankLines; ++line) {
        file.Write(dump::BlankLine);
    }
}

} // namespace

int DumpChoice::Rows() const {
    return (RAM ? RAMRows : 0) + (EEPROM ? EEPROMRows : 0);
}

RegisterDump::RegisterDump(LinkRoot& link, DumpDoor& door)
    : m_link(link)
    , m_door(door) {
    std::uint8_t address = 0;
    Try([&] { address = m_link->PrinterPortLink().BoardBus().SlaveAddress(); });
    ReadRegister = [this, address](std::uint8_t reg) {
        return m_link->PrinterPortLink().BoardBus().ReadByte(address, reg);
    };
}

DumpOutcome RegisterDump::Run(DumpChoice choice, const std::string& place) {
    Try([this] { m_link->PrinterPortLink().BurstMode(true); });
    AppendedFile file(place);
    m_outcome.Finished = (!choice.RAM || DumpRAM(file)) && (!choice.EEPROM || DumpEEPROM(file));
    if (!m_outcome.Finished) {
        file.Write(dump::Terminated(Clock()));
        WriteBlankLines(file);
    }
    file.Close();
    Try([this] { m_link->PrinterPortLink().BurstMode(false); });
    m_outcome.FileFailure = file.Reason();
    m_outcome.ReachedDisk = file.Reached();
    return m_outcome;
}

bool RegisterDump::DumpRAM(AppendedFile& file) {
    const DumpStamp stamp = Clock();
    file.Write(dump::RAMStart(stamp));
    for (int address = 0; address < RegisterCount; address += dump::RowSize) {
        const RowBytes bytes =
            ReadRow([&](int k) { return ReadRegister(static_cast<std::uint8_t>(address + k)); });
        if (!WriteRow(file, dump::RAMRow(static_cast<std::uint8_t>(address), bytes))) {
            return false;
        }
        m_door.ServeEvents();
    }
    file.Write(dump::RAMEnd(stamp));
    WriteBlankLines(file);
    return true;
}

bool RegisterDump::DumpEEPROM(AppendedFile& file) {
    const DumpStamp stamp = Clock();
    file.Write(dump::EEPROMStart(stamp));
    for (int block = eeprom::FirstHighByte; block <= eeprom::LastHighByte; ++block) {
        const auto high = static_cast<std::uint8_t>(block);
        for (int low = 0; low < eeprom::BlockSize; low += dump::RowSize) {
            const RowBytes bytes = ReadRow([&](int k) {
                return m_link->PrinterPortLink().EEPROMLink().ReadEEPROM(
                    high, static_cast<std::uint8_t>(low + k));
            });
            if (!WriteRow(file, dump::EEPROMRow(high, static_cast<std::uint8_t>(low), bytes))) {
                return false;
            }
        }
        m_door.ServeEvents();
    }
    file.Write(dump::EEPROMEnd(stamp));
    WriteBlankLines(file);
    return true;
}

bool RegisterDump::WriteRow(AppendedFile& file, const std::string& row) {
    if (m_door.StopRequested()) {
        return false;
    }
    file.Write(row);
    m_door.RowWritten();
    return true;
}

template <class Read>
RegisterDump::RowBytes RegisterDump::ReadRow(Read read) {
    RowBytes bytes;
    bytes.fill(0xFF);
    for (int k = 0; k < dump::RowSize; ++k) {
        if (!Try([&] { bytes[static_cast<std::size_t>(k)] = read(k); })) {
            ++m_outcome.FailedReads;
        }
    }
    return bytes;
}

template <class Call>
bool RegisterDump::Try(Call call) {
    try {
        call();
        return true;
    } catch (const LinkError& error) {
        if (m_outcome.LinkFailure.empty()) {
            m_outcome.LinkFailure = error.what();
        }
        return false;
    }
}

} // namespace tqx
