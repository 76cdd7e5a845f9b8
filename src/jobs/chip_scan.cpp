#include "jobs/chip_scan.h"

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
    MediumLength / (static_cast<int>(ChipScan::SlaveAddressCandidates.size()) - 1);

} // namespace

ChipScan::ChipScan(LinkRoot& link)
    : m_link(link) {}

void ChipScan::SearchAllMedia(const SearchMedia& media, const ScanProgress& progress) {
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
}

void ChipScan::ScanPrinterPorts(const ScanProgress& progress) {
    const std::uint8_t ports = m_link->PrinterPortLink().PortCount();
    m_printerPorts = ports;
    for (std::uint8_t port = 0; port < ports; ++port) {
        progress.Step(PrinterPortStep);
        m_link->PrinterPortLink().PortIndex(port);
        for (const bool boardMode : {false, true}) {
            m_link->PrinterPortLink().BoardBus().BoardMode(boardMode);
            ProbeBoard(port);
        }
    }
}

void ChipScan::ProbeBoard(std::uint8_t portIndex) {
    for (const std::uint8_t address : SlaveAddressCandidates) {
        BoardBus& board = m_link->PrinterPortLink().BoardBus();
        if (board.ReadByte(address, reg::CompanyID) == ChipIdentity) {
            m_printerPortFinds.push_back({address, portIndex, board.BoardMode()});
        }
    }
}

void ChipScan::ScanSMBus(const ScanProgress& progress) {
    for (const std::uint8_t candidate : SlaveAddressCandidates) {
        progress.Step(AddressStep);
        const auto address = static_cast<std::uint8_t>(candidate / 2);
        if (m_link->SMBusLink().ReadByte(address, reg::CompanyID) == ChipIdentity) {
            m_smbusFinds.push_back(address);
        }
    }
}

/// The link has no USB: only the progress goes on.
void ChipScan::ScanUSB(const ScanProgress& progress) {
    for (std::size_t i = 0; i < SlaveAddressCandidates.size(); ++i) {
        progress.Step(AddressStep);
    }
}

void ChipScan::Forget() {
    m_printerPortFinds.clear();
    m_smbusFinds.clear();
}

} // namespace tqx
