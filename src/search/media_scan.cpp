#include "search/media_scan.h"

#include "result_rows.h"

#include <link/link_root.h>

namespace tqx {
MediaScan::MediaScan(LinkRoot& link)
    : m_link(link)
    , m_scan(link) {}

void MediaScan::SearchAllMedia(const SearchMedia& media, const ScanProgress& progress) {
    m_scan.SearchAllMedia(media, progress);
    if (media.PrinterPort && m_scan.PrinterPorts() == 0) {
        m_notes << "This machine has no printer port.";
    }
    NoteSilentMedia(media);
}

/// Where one medium gave a chip, the silence of another is worth a word. Where none did, the page
/// says so by itself.
void MediaScan::NoteSilentMedia(const SearchMedia& media) {
    const bool onPrinterPort = !PrinterPortFinds().empty();
    const bool onSMBus = !SMBusFinds().empty();
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
    for (const PrinterPortFind& find : PrinterPortFinds()) {
        std::uint16_t portAddress = 0;
        reached &= PassOver([&] { m_link->PrinterPortLink().PortIndex(find.PortIndex); });
        reached &= PassOver([&] { portAddress = m_link->PrinterPortLink().PortAddress(); });
        const int number = static_cast<int>(rows.size()) + 1;
        rows.push_back({PrinterPortRow(find.Address, portAddress, number), find.Address,
                        find.BoardMode ? "It answered with the inverted board wiring."
                                       : "It answered with the direct board wiring."});
    }
    for (const std::uint8_t address : SMBusFinds()) {
        rows.push_back({SMBusRow(address), address, {}});
    }
    if (!reached) {
        m_notes << "A printer port could not be reached again: its address may be wrong.";
    }
    return rows;
}

void MediaScan::Forget() {
    m_scan.Forget();
    m_notes.clear();
}

} // namespace tqx
