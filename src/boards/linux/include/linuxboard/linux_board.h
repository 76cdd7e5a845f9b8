#pragma once

#include "linuxboard/kernel_face.h"

#include <link/link_root.h>
#include <link/os_version_info.h>

#include <functional>
#include <memory>

namespace tqx {

/// The machine's own ports: printer ports through ppdev, the SMBus through i2c-dev.
///
/// Needs no privilege beyond read and write access to the device nodes. A machine without a port
/// or without an adapter makes a link as well; what needs the missing thing raises LinkError.
class LinuxBoard {
public:
    /// On the kernel that runs the program.
    LinuxBoard();
    explicit LinuxBoard(std::unique_ptr<KernelFace> kernel);
    ~LinuxBoard();

    LinuxBoard(const LinuxBoard&) = delete;
    LinuxBoard& operator=(const LinuxBoard&) = delete;

    /// Makes a link to the ports that exist at that moment. The board must outlive it.
    LinkFactory Factory();

    /// Makes the facts of the operating system. The board must outlive them.
    std::function<std::unique_ptr<OSVersionInfo>()> OSVersionInfoFactory();

private:
    std::unique_ptr<KernelFace> m_kernel;
};

} // namespace tqx
