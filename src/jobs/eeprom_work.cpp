#include "jobs/eeprom_work.h"

#include <device/eeprom_map.h>
#include <device/register_addresses.h>
#include <link/burst_scope.h>

#include <algorithm>
#include <utility>

namespace tqx {
namespace {

constexpr std::size_t PageCount = ChipImage::EEPROMSize / eeprom::PageSize;
constexpr std::uint8_t Erased = 0xFF;
constexpr int ModeBits = eeprom::ReadBit | eeprom::WriteBit | eeprom::EraseBit;

std::uint8_t High(std::size_t address) {
    return static_cast<std::uint8_t>(eeprom::FirstHighByte + address / eeprom::BlockSize);
}

std::uint8_t Low(std::size_t address) {
    return static_cast<std::uint8_t>(address % eeprom::BlockSize);
}

/// `page` as it should be: what the image knows over what is there.
std::vector<std::uint8_t> Wanted(const ChipImage& image, std::size_t page,
                                 std::vector<std::uint8_t> bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = image.EEPROM[page * eeprom::PageSize + i].value_or(bytes[i]);
    }
    return bytes;
}

/// Programming only clears bits.
bool NeedsErase(const std::vector<std::uint8_t>& is, const std::vector<std::uint8_t>& wanted) {
    return !std::ranges::equal(is, wanted,
                               [](int has, int wants) { return (has & wants) == wants; });
}

} // namespace

WriteProtected::WriteProtected()
    : std::runtime_error("the EEPROM is write protected") {}

/// The modes of the EEPROM, which stand as they were once this has gone.
class EEPROMWork::Modes {
public:
    explicit Modes(BoardBus& bus)
        : m_bus(bus)
        , m_before(bus.ReadByte(bus.SlaveAddress(), reg::EEPROM3)) {}

    ~Modes() {
        try {
            Put(m_before);
        } catch (...) { // it would hide what ended the work
        }
    }

    Modes(const Modes&) = delete;
    Modes& operator=(const Modes&) = delete;

    void RefuseIfProtected() const {
        if ((m_before & eeprom::WriteProtectBit) != 0) {
            throw WriteProtected();
        }
    }

    void Select(std::uint8_t mode) {
        Put(static_cast<std::uint8_t>((m_before & ~ModeBits) | mode));
    }

private:
    void Put(std::uint8_t value) {
        if (value != m_now) {
            m_bus.WriteByte(m_bus.SlaveAddress(), reg::EEPROM3, value);
            m_now = value;
        }
    }

    BoardBus& m_bus;
    std::uint8_t m_before;
    std::uint8_t m_now = m_before;
};

EEPROMWork::EEPROMWork(LinkRoot& link, EEPROMDoor door)
    : m_link(link)
    , m_door(std::move(door)) {}

template <typename OnPage>
void EEPROMWork::ForEachPage(OnPage onPage) {
    m_outcome = {};
    const BurstScope burst(m_link->PrinterPortLink());
    Modes modes(m_link->PrinterPortLink().BoardBus());
    for (std::size_t page = 0; page < PageCount; ++page) {
        if (m_door.StopRequested()) {
            m_outcome.Finished = false;
            return;
        }
        onPage(modes, page);
        m_door.Progress(++m_outcome.Pages);
    }
}

EEPROMWork::Page EEPROMWork::ReadPage(std::size_t page) {
    Page bytes(eeprom::PageSize);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::size_t address = page * eeprom::PageSize + i;
        bytes[i] = Link().ReadEEPROM(High(address), Low(address));
    }
    return bytes;
}

void EEPROMWork::Read(ChipImage& image) {
    ForEachPage([&](Modes& modes, std::size_t page) {
        modes.Select(eeprom::ReadBit);
        std::ranges::copy(ReadPage(page),
                          image.EEPROM.begin() + static_cast<long>(page * eeprom::PageSize));
    });
}

void EEPROMWork::Verify(const ChipImage& image) {
    ForEachPage([&](Modes& modes, std::size_t page) {
        modes.Select(eeprom::ReadBit);
        const Page is = ReadPage(page);
        NoteWrong(page, is, Wanted(image, page, is));
    });
}

void EEPROMWork::Write(const ChipImage& image) {
    ForEachPage([&](Modes& modes, std::size_t page) {
        modes.RefuseIfProtected();
        WritePage(modes, page, image);
    });
}

void EEPROMWork::Erase() {
    ChipImage blank;
    blank.EEPROM.fill(Erased);
    Write(blank);
}

void EEPROMWork::WritePage(Modes& modes, std::size_t page, const ChipImage& image) {
    modes.Select(eeprom::ReadBit);
    Page is = ReadPage(page);
    const Page wanted = Wanted(image, page, is);
    if (is == wanted) {
        return;
    }
    if (NeedsErase(is, wanted)) {
        modes.Select(eeprom::EraseBit);
        Link().ErasePage(High(page * eeprom::PageSize), Low(page * eeprom::PageSize), 0);
        m_door.Pause();
        ++m_outcome.PagesErased;
        is.assign(is.size(), Erased);
    }
    for (std::size_t i = 0; i < is.size(); ++i) {
        if (is[i] != wanted[i]) {
            const std::size_t address = page * eeprom::PageSize + i;
            modes.Select(eeprom::WriteBit);
            Link().WriteEEPROM(High(address), Low(address), wanted[i]);
            m_door.Pause();
            ++m_outcome.BytesProgrammed;
        }
    }
    modes.Select(eeprom::ReadBit);
    NoteWrong(page, ReadPage(page), wanted);
}

void EEPROMWork::NoteWrong(std::size_t page, const Page& is, const Page& wanted) {
    for (std::size_t i = 0; i < is.size(); ++i) {
        if (is[i] != wanted[i]) {
            m_outcome.Wrong.push_back({true, page * eeprom::PageSize + i, wanted[i], is[i]});
        }
    }
}

} // namespace tqx
