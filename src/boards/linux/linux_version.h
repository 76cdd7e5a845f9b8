#pragma once

#include "linuxboard/kernel_face.h"

#include <link/os_version_info.h>

namespace tqx {

/// The build number on Linux. A machine with an SMBus that the chip may hang on counts as one of
/// the systems on which the SMBus can be reached, whatever its kernel; without, it is the kernel's
/// own number, which is none of them.
class LinuxVersion : public OSVersionInfo {
public:
    explicit LinuxVersion(KernelFace& kernel);

    std::string BuildNumber() override;

private:
    KernelFace& m_kernel;
};

} // namespace tqx
