#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tqx {

/// What a call of the kernel came back with: a number of <cerrno>, or 0 and a value.
struct KernelAnswer {
    int Error = 0;
    unsigned long Value = 0;
};

/// Who may use a device node.
struct NodeRights {
    std::string Owner;
    std::string Group;
    /// The nine permission bits.
    unsigned Mode;
};

/// Everything that the board asks of the kernel, one operation for one system call: what the
/// program does with the answers can then be tested on any machine.
///
/// Nothing here raises; no call is repeated. A file is the small number that Open gives.
class KernelFace {
public:
    virtual ~KernelFace() = default;

    /// @name Files and folders
    /// @{
    virtual KernelAnswer OpenNode(const std::string& path) = 0;
    virtual KernelAnswer OpenText(const std::string& path) = 0;
    virtual void Close(int file) = 0;
    /// The number of bytes that came, 0 at the end. May be fewer than there are.
    virtual KernelAnswer Read(int file, std::span<char> buffer) = 0;
    /// Names in a folder, in any order; none when it cannot be read.
    virtual std::vector<std::string> List(const std::string& folder) = 0;
    /// Where a path leads once its links are followed; empty when it leads nowhere.
    virtual std::string RealPath(const std::string& path) = 0;
    /// @}

    /// @name i2c-dev
    /// @{

    /// The functions of the adapter, I2C_FUNC_*.
    virtual KernelAnswer I2CFunctions(int file) = 0;
    /// Aims the transfers of this file at a 7-bit address. EBUSY: a kernel driver owns it.
    virtual KernelAnswer I2CAddress(int file, std::uint8_t address) = 0;
    virtual KernelAnswer SMBusReadByte(int file, std::uint8_t reg) = 0;
    virtual KernelAnswer SMBusWriteByte(int file, std::uint8_t reg, std::uint8_t value) = 0;
    /// @}

    /// @name ppdev
    /// @{

    /// Takes the port. The kernel sleeps until another user lets it go; a signal ends that.
    virtual KernelAnswer PortClaim(int file) = 0;
    virtual KernelAnswer PortRelease(int file) = 0;
    /// Compatibility mode: the port's lines are moved by the program alone.
    virtual KernelAnswer PortCompatible(int file) = 0;
    /// The data lines are driven by this side.
    virtual KernelAnswer PortForward(int file) = 0;
    virtual KernelAnswer PortWriteData(int file, std::uint8_t value) = 0;
    virtual KernelAnswer PortReadStatus(int file) = 0;
    /// @}

    /// @name The system and its time
    /// @{

    /// Such as "6.1.0-37-amd64".
    virtual std::string Release() = 0;
    virtual std::optional<NodeRights> RightsOf(const std::string& path) = 0;
    /// A clock that nobody sets.
    virtual std::chrono::nanoseconds Now() = 0;
    /// Gives the thread up for at least `time`.
    virtual void Sleep(std::chrono::nanoseconds time) = 0;
    /// @}
};

} // namespace tqx
