#include "linuxboard/linux_board.h"

#include "adapters.h"
#include "i2c_smbus.h"
#include "linux_kernel.h"
#include "ppdev_port.h"

#include <link/link_server.h>
#include <link/port_link.h>

#include <string>
#include <utility>

namespace tqx {

namespace {

/// The build number on Linux. A machine with an SMBus that the chip may hang on counts as one of
/// the systems on which the SMBus can be reached, whatever its kernel; without, it is the kernel's
/// own number, which is none of them.
class LinuxVersion : public OSVersionInfo {
public:
    explicit LinuxVersion(KernelFace& kernel)
        : m_kernel(kernel) {}

    std::string BuildNumber() override {
        // Of the builds that reach the SMBus one that has USB, too: nothing is lacking here.
        constexpr const char* withSMBus = "2222";
        return FindAdapters(m_kernel).empty() ? m_kernel.Release() : withSMBus;
    }

private:
    KernelFace& m_kernel;
};

} // namespace

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
