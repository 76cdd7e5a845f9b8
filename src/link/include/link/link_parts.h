#pragma once

#include "link/link_server.h"

#include <cstdint>
#include <memory>

namespace tqx {

/// A LinkServer put together from one link for each medium. It starts on the printer port.
class PartsLinkServer : public LinkServer {
public:
    PartsLinkServer(std::unique_ptr<tqx::PrinterPortLink> printerPort,
                    std::unique_ptr<tqx::SMBusLink> smbus);

    tqx::PrinterPortLink& PrinterPortLink() override { return *m_printerPort; }

    tqx::SMBusLink& SMBusLink() override { return *m_smbus; }

    std::int16_t ActiveMedium() override { return m_activeMedium; }

    void ActiveMedium(std::int16_t medium) override { m_activeMedium = medium; }

private:
    std::unique_ptr<tqx::PrinterPortLink> m_printerPort;
    std::unique_ptr<tqx::SMBusLink> m_smbus;
    std::int16_t m_activeMedium = ActivePrinterPort;
};

} // namespace tqx
