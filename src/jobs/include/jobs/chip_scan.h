#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace tqx {

class LinkRoot;

/// The media that the user wants searched.
struct SearchMedia {
    bool PrinterPort = false;
    bool SMBus = false;
    bool USB = false;

    int Count() const { return int{PrinterPort} + int{SMBus} + int{USB}; }
};

/// Where the scan tells how far it has come. Neither may serve events.
struct ScanProgress {
    /// The length of the whole way; comes once, before the first step.
    std::function<void(int max)> Max;
    /// Another step of this length; the way may end before the steps do, or after.
    std::function<void(int step)> Step;
};

/// A chip that answered on a printer port.
struct PrinterPortFind {
    /// In 8-bit form.
    std::uint8_t Address;
    std::uint8_t PortIndex;
    /// The wiring in which it answered.
    bool BoardMode;
};

/// Looks for the chip on the media of the machine and keeps what it found until it is told to
/// forget. It asks the link directly, since no chip is chosen yet.
class ChipScan {
public:
    explicit ChipScan(LinkRoot& link);

    /// The chip's three bus addresses in 8-bit form.
    static constexpr std::array<std::uint8_t, 3> SlaveAddressCandidates{0x58, 0x5A, 0x5C};

    /// Asks for the chip's identity at every candidate address of the media. Adds to what was
    /// found before. Errors of the link pass through.
    void SearchAllMedia(const SearchMedia& media, const ScanProgress& progress);

    /// Empties the found lists.
    void Forget();

    /// Printer ports that the last search met.
    int PrinterPorts() const { return m_printerPorts; }

    const std::vector<PrinterPortFind>& PrinterPortFinds() const { return m_printerPortFinds; }

    /// Addresses that answered on the SMBus, in 7-bit form.
    const std::vector<std::uint8_t>& SMBusFinds() const { return m_smbusFinds; }

private:
    void ScanPrinterPorts(const ScanProgress& progress);
    void ProbeBoard(std::uint8_t portIndex);
    void ScanSMBus(const ScanProgress& progress);
    static void ScanUSB(const ScanProgress& progress);

    LinkRoot& m_link;
    int m_printerPorts = 0;
    std::vector<PrinterPortFind> m_printerPortFinds;
    std::vector<std::uint8_t> m_smbusFinds;
};

} // namespace tqx
