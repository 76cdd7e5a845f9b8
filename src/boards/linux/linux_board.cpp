#include "linuxboard/linux_board.h"

#include "i2c_smbus.h"
#include "linux_kernel.h"
#include "linux_version.h"
#include "ppdev_port.h"

#include <link/link_parts.h>
#include <link/port_link.h>

#include <utility>

namespace tqx {

LinuxBoard::LinuxBoard()
    : LinuxBoard(std::make_unique<LinuxKernel>()) {}

LinuxBoard::LinuxBoard(std::unique_ptr<KernelFace> kernel)
    : m_kernel(std::move(kernel)) {}

LinuxBoard::~LinuxBoard() = default;

LinkFactory LinuxBoard::Factory() {
    return [this](const LinkSetup& setup) {
        return std::make_unique<PartsLinkServer>(
            std::make_unique<PortLink>(FindPrinterPorts(*m_kernel), setup),
            std::make_unique<I2CSMBus>(*m_kernel, m_onlyAdapter));
    };
}

std::vector<int> LinuxBoard::PrinterPortNumbers() const {
    return tqx::PrinterPortNumbers(*m_kernel);
}

std::function<std::unique_ptr<OSVersionInfo>()> LinuxBoard::OSVersionInfoFactory() {
    return [this] { return std::make_unique<LinuxVersion>(*m_kernel); };
}

} // namespace tqx
