#pragma once

#include <jobs/chip_scan.h>
#include <link/link_error.h>

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace tqx {

class LinkRoot;

/// A row of the result list and the address that goes with it, in the form of its medium.
struct ResultRow {
    QString Text;
    std::uint8_t Address;
    /// What tells rows of the same sentence apart; empty where nothing does.
    QString Remark;
};

/// Runs one step of a sequence that goes on whatever becomes of it. False when the link failed.
template <typename Step>
bool PassOver(const Step& step) {
    try {
        step();
        return true;
    } catch (const LinkError&) {
        return false;
    }
}

/// The search of the wizard: what the scan finds, as rows for the user, and what is to be said
/// beside them.
class MediaScan {
public:
    explicit MediaScan(LinkRoot& link);

    /// Scans the media. Adds to what was found before. Errors of the link pass through.
    void SearchAllMedia(const SearchMedia& media, const ScanProgress& progress);

    /// The rows of what was found, printer ports first. A port that fails here is passed over and
    /// leaves a note. The port of the last printer-port row stays selected.
    std::vector<ResultRow> ShowSearchResults();

    /// Empties the found lists and the notes.
    void Forget();

    const std::vector<PrinterPortFind>& PrinterPortFinds() const {
        return m_scan.PrinterPortFinds();
    }

    /// Addresses that answered on the SMBus, in 7-bit form.
    const std::vector<std::uint8_t>& SMBusFinds() const { return m_scan.SMBusFinds(); }

    /// What the user should know beyond the rows: media that were asked for and gave nothing.
    const QStringList& Notes() const { return m_notes; }

private:
    void NoteSilentMedia(const SearchMedia& media);

    LinkRoot& m_link;
    ChipScan m_scan;
    QStringList m_notes;
};

} // namespace tqx
