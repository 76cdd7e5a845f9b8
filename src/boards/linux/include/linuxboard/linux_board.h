#pragma once

#include "linuxboard/kernel_face.h"

#include <link/link_root.h>
#include <link/link_server.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

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

    /// The numbers of the kernel's printer ports, in the order of the link's port indices: 0 stands
    /// for /dev/parport0.
    std::vector<int> PrinterPortNumbers() const;

    /// Links that are made from now on know this adapter alone: 1 for /dev/i2c-1.
    void OnlyAdapter(int number) { m_onlyAdapter = number; }

private:
    std::optional<int> m_onlyAdapter;
    std::unique_ptr<KernelFace> m_kernel;
};

} // namespace tqx
