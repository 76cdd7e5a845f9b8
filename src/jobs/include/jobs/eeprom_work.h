#pragma once

#include "jobs/chip_image.h"

#include <link/link_root.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <vector>

namespace tqx {

/// What work on the EEPROM asks of whoever runs it.
struct EEPROMDoor {
    /// Pages that are done, of all 128.
    std::function<void(int pages)> Progress = [](int) {};
    /// Looked at between two pages.
    std::function<bool()> StopRequested = [] { return false; };
    /// The time that the chip takes for a byte or a page.
    std::function<void()> Pause = [] {};
};

/// The EEPROM's write protect bit is set: nothing was sent to be programmed.
class WriteProtected : public std::runtime_error {
public:
    WriteProtected();
};

/// How work on the EEPROM went.
struct EEPROMOutcome {
    /// False when it was stopped.
    bool Finished = true;
    /// Pages from the beginning on that are as they should be, or were given up as faulty.
    int Pages = 0;
    int PagesErased = 0;
    int BytesProgrammed = 0;
    /// Bytes that are not what they should be.
    std::vector<ChipDifference> Wrong;
};

/// Reads, writes, erases and verifies the EEPROM of the chip that the board's bus has, page by
/// page. The mode bits in "EEPROM 3" (13h) are put back at the end, whatever the end is. Errors of
/// the link pass through; the outcome then tells how far the work had come.
class EEPROMWork {
public:
    EEPROMWork(LinkRoot& link, EEPROMDoor door);

    /// Takes the whole EEPROM into `image`. What a stop has left out stays unknown.
    void Read(ChipImage& image);

    /// Makes the EEPROM what `image` knows of it; the other bytes keep their values. Only pages
    /// with a bit to be set are erased, only bytes that differ are programmed, and each page is
    /// read back. A page that a failing link has left half done is made whole by a second call, as
    /// far as the image knows its bytes.
    void Write(const ChipImage& image);

    /// Erases the pages that are not blank.
    void Erase();

    /// Reads and compares.
    void Verify(const ChipImage& image);

    const EEPROMOutcome& Outcome() const { return m_outcome; }

private:
    class Modes;
    using Page = std::vector<std::uint8_t>;

    template <typename OnPage>
    void ForEachPage(OnPage onPage);
    Page ReadPage(std::size_t page);
    void WritePage(Modes& modes, std::size_t page, const ChipImage& image);
    void NoteWrong(std::size_t page, const Page& is, const Page& wanted);

    EEPROMLink& Link() { return m_link->PrinterPortLink().EEPROMLink(); }

    LinkRoot& m_link;
    EEPROMDoor m_door;
    EEPROMOutcome m_outcome;
};

} // namespace tqx
