#include "linux_version.h"

#include "adapters.h"

namespace tqx {

namespace {

/// Of the builds that reach the SMBus one that has USB, too: nothing is lacking here.
constexpr const char* BuildWithSMBus = "2222";

} // namespace

LinuxVersion::LinuxVersion(KernelFace& kernel)
    : m_kernel(kernel) {}

std::string LinuxVersion::BuildNumber() {
    return FindAdapters(m_kernel).empty() ? m_kernel.Release() : BuildWithSMBus;
}

} // namespace tqx
