#pragma once

#include "linuxboard/kernel_face.h"

namespace tqx {

/// The kernel that runs the program.
class LinuxKernel : public KernelFace {
public:
    KernelAnswer OpenNode(const std::string& path) override;
    KernelAnswer OpenText(const std::string& path) override;
    void Close(int file) override;
    KernelAnswer Read(int file, std::span<char> buffer) override;
    std::vector<std::string> List(const std::string& folder) override;
    std::string RealPath(const std::string& path) override;

    KernelAnswer I2CFunctions(int file) override;
    KernelAnswer I2CAddress(int file, std::uint8_t address) override;
    KernelAnswer SMBusReadByte(int file, std::uint8_t reg) override;
    KernelAnswer SMBusWriteByte(int file, std::uint8_t reg, std::uint8_t value) override;

    KernelAnswer PortClaim(int file) override;
    KernelAnswer PortRelease(int file) override;
    KernelAnswer PortCompatible(int file) override;
    KernelAnswer PortForward(int file) override;
    KernelAnswer PortWriteData(int file, std::uint8_t value) override;
    KernelAnswer PortReadStatus(int file) override;

    std::string Release() override;
    std::optional<NodeRights> RightsOf(const std::string& path) override;
    std::chrono::nanoseconds Now() override;
    void Sleep(std::chrono::nanoseconds time) override;
};

} // namespace tqx
