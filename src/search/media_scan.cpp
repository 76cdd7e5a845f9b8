#include "search/media_scan.h"

#include "result_rows.h"

#include <device/register_addresses.h>
#include <link/link_root.h>

namespace tqx {
namespace {

constexpr std::uint8_t ChipIdentity = 0x41;

/// Length of one medium on the way of the progress, and of the steps on it. The steps of a medium
/// need not add up to its length.
constexpr int MediumLength = 33;
constexpr int PrinterPortStep = MediumLength / 4;
constexpr int AddressStep =
    MediumLength / (static_cast<int>(MediaScan::SlaveAddressCandidates.size()) - 1);

} // namespace

MediaScan::MediaScan(LinkRoot& link)
    : m_link(link) {}

void MediaScan::SearchAllMedia(const SearchMedia& media, const ScanProgress& progress) {
    progress.Max(MediumLength * media.Count());
    if (media.PrinterPort) {
        ScanPrinterPorts(progress);
    }
    if (media.SMBus) {
        ScanSMBus(progress);
    }
    if (media.USB) {
        ScanUSB(progress);
    }
    NoteSilentMedia(media);
}

void MediaScan::ScanPrinterPorts(const ScanProgress& progress) {
    const std::uint8_t ports = m_link->PrinterPortLink().PortCount();
    if (ports == 0) {
        m_notes << "This machine has no printer port.";
    }
    for (std::uint8_t port = 0; port < ports; ++port) {
        progress.Step(PrinterPortStep);
        m_link->PrinterPortLink().PortIndex(port);
        for (const bool boardMode : {false, true}) {
            m_link->PrinterPortLink().BoardBus().BoardMode(boardMode);
            ProbeBoard(port);
        }
    }
}

void MediaScan::ProbeBoard(std::uint8_t portIndex) {
    for (const std::uint8_t address : SlaveAddressCandidates) {
        BoardBus& board = m_link->PrinterPortLink().BoardBus();
        if (board.ReadByte(address, reg::CompanyID) == ChipIdentity) {
            m_printerPortFinds.push_back({address, portIndex, board.BoardMode()});
        }
    }
}

void MediaScan::ScanSMBus(const ScanProgress& progress) {
    for (const std::uint8_t candidate : SlaveAddressCandidates) {
        progress.Step(AddressStep);
        const auto address = static_cast<std::uint8_t>(candidate / 2);
        if (m_link->SMBusLink().ReadByte(address, reg::CompanyID) == ChipIdentity) {
            m_smbusFinds.push_back(address);
        }
    }
}

/// The link has no USB: only the progress goes on.
void MediaScan::ScanUSB(const ScanProgress& progress) {
    for (std::size_t i = 0; i < SlaveAddressCandidates.size(); ++i) {
        progress.Step(AddressStep);
    }
}

/// Where one medium gave a chip, the silence of another is worth a word. Where none did, the page
/// says so by itself.
void MediaScan::NoteSilentMedia(const SearchMedia& media) {
    const bool onPrinterPort = !m_printerPortFinds.empty();
    const bool onSMBus = !m_smbusFinds.empty();
    if (media.PrinterPort && !onPrinterPort && onSMBus && m_notes.isEmpty()) {
        m_notes << "Nothing answered on the printer port.";
    }
    if (media.SMBus && !onSMBus && onPrinterPort) {
        m_notes << "Nothing answered on the SMBus.";
    }
}

std::vector<ResultRow> MediaScan::ShowSearchResults() {
    std::vector<ResultRow> rows;
    bool reached = true;
    for (const PrinterPortFind& find : m_printerPortFinds) {
        std::uint16_t portAddress = 0;
        reached &= PassOver([&] { m_link->PrinterPortLink().PortIndex(find.PortIndex); });
        reached &= PassOver([&] { portAddress = m_link->PrinterPortLink().PortAddress(); });
        const int number = static_cast<int>(rows.size()) + 1;
        rows.push_back({PrinterPortRow(find.Address, portAddress, number), find.Address,
                        find.BoardMode ? "It answered with the inverted board wiring."
                                       : "It answered with the direct board wiring."});
    }
    for (const std::uint8_t address : m_smbusFinds) {
        rows.push_back({SMBusRow(address), address, {}});
    }
    if (!reached) {
        m_notes << "A printer port could not be reached again: its address may be wrong.";
    }
    return rows;
}

void MediaScan::Forget() {
    m_printerPortFinds.clear();
    m_smbusFinds.clear();
    m_notes.clear();
}

} // namespace tqx
