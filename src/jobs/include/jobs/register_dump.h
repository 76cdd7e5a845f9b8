#pragma once

#include "jobs/dump_format.h"

#include <link/link_root.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace tqx {

class AppendedFile;

/// What a dump asks of the window that runs it.
class DumpDoor {
public:
    virtual ~DumpDoor() = default;

    /// One row has been written.
    virtual void RowWritten() = 0;
    /// Runs the event loop once.
    virtual void ServeEvents() = 0;
    virtual bool StopRequested() = 0;
};

/// What a dump takes in.
struct DumpChoice {
    bool RAM = true;
    bool EEPROM = true;

    /// How many rows the dump has, 0 to 1056.
    int Rows() const;
};

/// How a dump went.
struct DumpOutcome {
    /// False when it was stopped; the file then ends with the record of the stop.
    bool Finished = true;
    /// Why not everything reached the disk, in the system's words; empty when it did.
    std::string FileFailure;
    /// Some of the dump reached the disk, if not all.
    bool ReachedDisk = false;
    /// Bytes that could not be read, and what the first failed link call said.
    int FailedReads = 0;
    std::string LinkFailure;
};

/// Writes all registers and the whole EEPROM of one chip into a file, over the printer port,
/// whichever medium is active, with burst mode on for the whole run.
///
/// A failure ends nothing: a byte that could not be read stands as FFh, like that of a chip that
/// does not answer, and a file that cannot be written is left as it is.
class RegisterDump {
public:
    /// Takes the chip that the board's bus has at this moment.
    RegisterDump(LinkRoot& link, DumpDoor& door);

    /// Appends to the file at `place` and closes it.
    DumpOutcome Run(DumpChoice choice, const std::string& place);

    /// Gives the times of the headings; the wall clock unless it is replaced.
    std::function<DumpStamp()> Clock = &DumpStamp::Now;

    /// Reads one register; over the printer port unless it is replaced.
    std::function<std::uint8_t(std::uint8_t reg)> ReadRegister;

private:
    using RowBytes = std::array<std::uint8_t, dump::RowSize>;

    bool DumpRAM(AppendedFile& file);
    bool DumpEEPROM(AppendedFile& file);
    bool WriteRow(AppendedFile& file, const std::string& row);
    template <class Read>
    RowBytes ReadRow(Read read);
    template <class Call>
    bool Try(Call call);

    LinkRoot& m_link;
    DumpDoor& m_door;
    DumpOutcome m_outcome;
};

} // namespace tqx
