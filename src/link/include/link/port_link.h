#pragma once

#include "link/link_root.h"
#include "link/link_server.h"
#include "link/parallel_port.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tqx {

/// The evaluation board's bus on the lines of real or modelled printer ports: the one
/// implementation for every board.
///
/// The first port is the selected one until another is chosen, by index or by base address. A port
/// that does not exist raises LinkError and leaves the selection. Without any port PortCount is 0,
/// everything that is only set or got works, and a transfer raises LinkError.
///
/// A transfer holds its port and lets it go at its end. In burst mode the first transfer takes the
/// port and it is kept until the burst ends, another port is selected, or a transfer fails. So
/// burst mode alone never touches a port. When a call of the port fails in mid-transfer, the lines
/// are parked, which ends the transfer for every slave, the port is let go, and the error passes
/// through. A port that does not let them be parked either gets that ahead of its next transfer. So
/// do a port's first transfer and the first one in another board mode, as nobody knows what was on
/// the lines before.
///
/// Byte operations that make up a transfer of the caller's own belong into a burst: by itself each
/// of them is a transfer here, behind which the port is let go and others may move the lines.
class PortLink : public PrinterPortLink {
public:
    /// At most 255 ports are used. The setup must outlive the link.
    PortLink(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup);
    ~PortLink() override;

    std::uint8_t PortCount() override;
    void PortIndex(std::uint8_t index) override;
    std::uint16_t PortAddress() override;
    void BurstMode(bool on) override;

    tqx::BoardBus& BoardBus() override;
    tqx::EEPROMLink& EEPROMLink() override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace tqx
