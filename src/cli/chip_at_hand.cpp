#include "chip_at_hand.h"

#include "texts.h"

#include <device/eeprom_map.h>
#include <device/register_addresses.h>
#include <jobs/chip_image.h>
#include <jobs/chip_scan.h>
#include <jobs/dump_format.h>
#include <jobs/file_lock.h>
#include <jobs/files.h>
#include <link/link_error.h>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace tqx::cli {
namespace {

constexpr std::array<std::string_view, sim::FaultCount> FaultNames{
    "no-answer",   "data-stuck-low", "data-stuck-high",   "clock-stuck-low", "wrong-pec",
    "short-count", "slow-bus",       "lost-eeprom-write", "link-fails"};

/// What a simulated board has behind it when the command begins: fans turn and it is warm.
constexpr std::chrono::minutes TimeInUse{10};

constexpr std::uint8_t BitDelayCount = 100;

/// A fault and at which of its occasions it strikes: "link-fails" or "link-fails:40".
void SwitchOn(sim::Faults& faults, const std::string& text) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    const auto* const name = std::ranges::find(FaultNames, text.substr(0, colon));
    const auto nth = colon == text.size() ? 1U : NumberIn(text.substr(colon + 1)).value_or(0);
    if (name == FaultNames.end() || nth == 0) {
        std::string names;
        for (const std::string_view each : FaultNames) {
            names.append(names.empty() ? "" : ", ").append(each);
        }
        throw Refusal(WrongUse, "there is no fault " + text + "; the faults are " + names +
                                    ", each with :N to strike at every Nth occasion");
    }
    faults.Every(static_cast<sim::Fault>(name - FaultNames.begin()), nth);
}

/// Puts back what a file kept. The EEPROM goes through its modes, as on the bus.
void Load(sim::Chip& chip, const ChipImage& image) {
    chip.Write(reg::EEPROM3, eeprom::EraseBit);
    for (std::uint16_t page = 0; page < ChipImage::EEPROMSize; page += eeprom::PageSize) {
        chip.WriteEEPROM(page, 0);
    }
    chip.Write(reg::EEPROM3, eeprom::WriteBit);
    for (std::uint16_t i = 0; i < ChipImage::EEPROMSize; ++i) {
        chip.WriteEEPROM(i, image.EEPROM.at(i).value_or(0xFF));
    }
    for (std::size_t i = 0; i < image.Registers.size(); ++i) {
        if (image.Registers.at(i)) {
            chip.Write(static_cast<std::uint8_t>(i), *image.Registers.at(i));
        }
    }
}

template <typename ReadByte, typename RowText>
void AddRows(std::string& text, int count, ReadByte read, RowText row) {
    for (int at = 0; at < count; at += dump::RowSize) {
        std::array<std::uint8_t, dump::RowSize> bytes{};
        for (int k = 0; k < dump::RowSize; ++k) {
            bytes.at(static_cast<std::size_t>(k)) = read(at + k);
        }
        text += row(at, bytes);
    }
}

/// The board as a register dump, which `compare` can read.
std::string DumpOf(sim::Chip& chip) {
    const DumpStamp stamp = DumpStamp::Now();
    std::string text = dump::RAMStart(stamp);
    AddRows(
        text, 256, [&](int i) { return chip.Read(static_cast<std::uint8_t>(i)); },
        [](int at, dump::Row bytes) { return dump::RAMRow(static_cast<std::uint8_t>(at), bytes); });
    text += dump::RAMEnd(stamp) + dump::EEPROMStart(stamp);
    AddRows(
        text, ChipImage::EEPROMSize,
        [&](int i) { return chip.ReadEEPROM(static_cast<std::uint16_t>(i)); },
        [](int at, dump::Row bytes) {
            return dump::EEPROMRow(static_cast<std::uint8_t>(0x80 + at / 256),
                                   static_cast<std::uint8_t>(at), bytes);
        });
    return text + dump::EEPROMEnd(stamp);
}

/// The address that the user gave, in 7-bit form.
std::uint8_t AddressIn(const std::string& text) {
    const auto number = NumberIn(text);
    for (const std::uint8_t candidate : ChipScan::SlaveAddressCandidates) {
        if (number == candidate || number == candidate / 2U) {
            return candidate / 2;
        }
    }
    throw Refusal(WrongUse, "no TQX7716 is at " + text +
                                "; its addresses are 58h, 5Ah and 5Ch, on the SMBus 2Ch, 2Dh and "
                                "2Eh");
}

/// N of "PREFIXn"; nothing for another text.
std::optional<int> NodeNumber(std::string_view text, std::string_view prefix) {
    const auto number =
        text.starts_with(prefix) ? NumberIn(std::string(text.substr(prefix.size()))) : std::nullopt;
    return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

} // namespace

ChipAtHand::ChipAtHand(const Where& where, Surroundings& around)
    : m_where(where)
    , m_around(around) {
    if (!where.Address.empty()) {
        m_address = AddressIn(where.Address);
    }
    if (!where.PrinterPort.empty() && !where.SMBus.empty()) {
        throw Refusal(WrongUse, "--printer-port and --smbus exclude each other");
    }
    if (!where.PrinterPort.empty() && !where.PrinterPort.starts_with('/')) {
        m_port = NumberIn(where.PrinterPort);
        if (!m_port) {
            throw Refusal(WrongUse, where.PrinterPort + " is no address of a printer port, such as "
                                                        "378h, and no node, such as "
                                                        "/dev/parport0");
        }
    }
    where.Simulated.empty() ? MakeReal() : MakeSimulated();
    m_bench->Link.Setup.BitDelayCount = BitDelayCount;
    m_bench->Link.Setup.Notice = [this](std::string_view title, std::string_view message) {
        m_around.Err << "tqx7716: " << title << ": " << message << '\n';
    };
}

ChipAtHand::~ChipAtHand() {
    m_bench.reset(); // the lines are let go ahead of the lock
    if (m_lock >= 0) {
        close(m_lock);
    }
}

void ChipAtHand::MakeSimulated() {
    if (m_where.PrinterPort.starts_with('/') || m_where.SMBus.starts_with('/')) {
        throw Refusal(WrongUse, "the simulated board has no nodes, only port 378h and an SMBus");
    }
    const auto now = [this, begin = m_around.Now()] { return m_age + m_around.Now() - begin; };
    m_simulated = std::make_unique<sim::SimulatedBoard>(sim::SimulatedBoardOptions{
        .BoardMode = m_where.Inverted, .Seed = m_where.Seed, .Now = now});
    m_age = TimeInUse; // once it has been switched on
    m_simulated->BusHertz(m_where.BusHertz);
    for (const std::string& fault : m_where.Faults) {
        SwitchOn(m_simulated->TheFaults(), fault);
    }
    if (m_where.Simulated != "true" && std::filesystem::exists(m_where.Simulated)) {
        Lock(m_where.Simulated);
        Load(m_simulated->TheChip(), ImageIn(ReadFile(m_where.Simulated), m_where.Simulated));
    }
    m_bench = std::make_unique<tqx::Bench>(m_simulated->Factory());
}

void ChipAtHand::MakeReal() {
    if (!m_where.Faults.empty() || m_where.BusHertz != 0) {
        throw Refusal(WrongUse, "--fault and --bus-hertz are for the simulated board");
    }
    m_real = std::make_unique<LinuxBoard>();
    if (m_where.PrinterPort.starts_with('/')) {
        const std::vector<int> numbers = m_real->PrinterPortNumbers();
        const auto number = NodeNumber(m_where.PrinterPort, "/dev/parport");
        const auto found = std::ranges::find(numbers, number.value_or(-1));
        if (found == numbers.end()) {
            throw Refusal(WrongUse, "the kernel has no printer port " + m_where.PrinterPort);
        }
        m_node = static_cast<int>(found - numbers.begin());
    }
    if (m_where.SMBus.starts_with('/')) {
        const auto number = NodeNumber(m_where.SMBus, "/dev/i2c-");
        if (!number) {
            throw Refusal(WrongUse,
                          m_where.SMBus + " is no node of an adapter, such as /dev/i2c-1");
        }
        m_real->OnlyAdapter(*number);
    }
    m_bench = std::make_unique<tqx::Bench>(m_real->Factory());
}

/// Two calls that move the same lines, or keep the same board, would spoil each other's work.
void ChipAtHand::Lock(const std::string& place) {
    m_lock = open(place.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    const std::string holder = m_lock < 0 ? "" : LockedBy(m_lock);
    if (!holder.empty()) {
        throw LinkError("cannot use " + place, holder + ", is using it",
                        "Wait for it to end, or end it.");
    }
}

bool ChipAtHand::Wanted(const FoundChip& find) const {
    if (m_address && *m_address != (find.OnSMBus ? find.Address : find.Address / 2)) {
        return false;
    }
    return find.OnSMBus ||
           ((!m_port || *m_port == find.Base) && (!m_node || *m_node == find.PortIndex) &&
            (!m_where.Inverted || find.Inverted));
}

/// A medium that fails is passed over and noted: the chip may be on the other.
void ChipAtHand::FindOn(bool smbus, std::vector<FoundChip>& finds, std::string& notes) {
    const ScanProgress silent{[](int) {}, [](int) {}};
    ChipScan scan(m_bench->Link);
    try {
        scan.SearchAllMedia({.PrinterPort = !smbus, .SMBus = smbus}, silent);
        PrinterPortLink& ports = m_bench->Link->PrinterPortLink();
        for (const PrinterPortFind& find : scan.PrinterPortFinds()) {
            ports.PortIndex(find.PortIndex);
            finds.push_back(
                {false, find.Address, find.PortIndex, find.BoardMode, ports.PortAddress()});
        }
        for (const std::uint8_t address : scan.SMBusFinds()) {
            finds.push_back({.OnSMBus = true,
                             .Address = address,
                             .Base = m_bench->Link->SMBusLink().BaseAddress()});
        }
    } catch (const LinkError& error) {
        notes += std::string("tqx7716: ") + error.what() + ". " + error.Advice() + "\n";
    }
}

std::vector<FoundChip> ChipAtHand::Find() {
    std::vector<FoundChip> finds;
    std::string notes;
    if (m_where.SMBus.empty()) {
        FindOn(false, finds, notes);
    }
    if (m_where.PrinterPort.empty() && !m_where.Inverted) {
        FindOn(true, finds, notes);
    }
    std::erase_if(finds, [this](const FoundChip& find) { return !Wanted(find); });
    m_around.Err << notes;
    if (finds.empty() && !notes.empty()) {
        throw Refusal(LinkFailed, "no TQX7716 was found on what could be searched");
    }
    return finds;
}

void ChipAtHand::Choose() {
    std::vector<FoundChip> finds = Find();
    if (finds.empty()) {
        throw Refusal(AnswerIsNo, "no TQX7716 was found; check the connections and the supply");
    }
    if (Simulated() && m_where.SMBus.empty()) {
        finds.resize(1); // the one chip answers on both media
    }
    if (finds.size() > 1) {
        std::string list = "several TQX7716 were found; name one by --printer-port, --smbus, "
                           "--inverted or --address:";
        for (const FoundChip& find : finds) {
            list += "\n  " + Sentence(find);
        }
        throw Refusal(WrongUse, list);
    }
    const FoundChip& chip = finds.front();
    m_onSMBus = chip.OnSMBus;
    m_bench->Bus.BusCell.SlaveAddress = chip.Address;
    if (chip.OnSMBus) {
        m_bench->Link->SMBusLink().SlaveAddress(chip.Address);
        m_bench->Link->ActiveMedium(ActiveSMBus);
        m_bench->Bus.BusCell.ComsMedium = ComsSMBus;
    } else {
        if (m_real) {
            Lock("/dev/parport" + std::to_string(m_real->PrinterPortNumbers().at(chip.PortIndex)));
        }
        PrinterPortLink& ports = m_bench->Link->PrinterPortLink();
        ports.PortIndex(chip.PortIndex);
        ports.BoardBus().BoardMode(chip.Inverted);
        ports.BoardBus().SlaveAddress(chip.Address);
        m_bench->Link->ActiveMedium(ActivePrinterPort);
        m_bench->Bus.BusCell.ComsMedium = ComsPrinterPort;
        m_bench->Bus.BusCell.PortAddress = ports.BoardBus().PortAddress();
    }
    m_bench->Channels.ConfigureChannels();
}

void ChipAtHand::Keep() {
    if (m_simulated && m_where.Simulated != "true") {
        ReplaceFile(m_where.Simulated, DumpOf(m_simulated->TheChip()));
    }
}

void ChipAtHand::NeedPrinterPort(const std::string& what) const {
    if (m_onSMBus) {
        throw Refusal(WrongUse, what + " can only be had over a printer port");
    }
}

std::string Sentence(const FoundChip& chip) {
    const std::string base = chip.Base == 0 ? "" : " " + HexText(chip.Base) + "h";
    return HexText(chip.Address) + "h on the " +
           (chip.OnSMBus ? "SMBus" + base
                         : "printer port" + base +
                               (chip.Inverted ? ", inverted wiring" : ", direct wiring"));
}

} // namespace tqx::cli
