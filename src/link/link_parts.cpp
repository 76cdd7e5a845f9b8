#include "link/link_parts.h"

#include <utility>

namespace tqx {

PartsLinkServer::PartsLinkServer(std::unique_ptr<tqx::PrinterPortLink> printerPort,
                                 std::unique_ptr<tqx::SMBusLink> smbus)
    : m_printerPort(std::move(printerPort))
    , m_smbus(std::move(smbus)) {}

} // namespace tqx
