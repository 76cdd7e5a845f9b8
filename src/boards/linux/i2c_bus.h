#pragma once

#include "adapters.h"
#include "kernel_files.h"
#include "linuxboard/kernel_face.h"

#include <link/link_error.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tqx {

/// What a read gives when nobody drives the data line.
inline constexpr std::uint8_t IdleBusByte = 0xFF;

/// The address belongs to a kernel driver, which knows another chip there.
class AddressTaken : public LinkError {
    using LinkError::LinkError;
};

/// SMBus byte transfers on one adapter, through its i2c-dev node.
///
/// The node is opened by the first transfer and aimed anew when the address changes, so that a
/// transfer on the same address is one system call. Nobody at an address is no error. All others
/// raise LinkError; when the adapter has gone, its node is closed at once, as the kernel waits for
/// that.
class I2CBus {
public:
    I2CBus(KernelFace& kernel, Adapter adapter);

    const Adapter& TheAdapter() const { return m_adapter; }

    /// False before the first transfer and after one that found the adapter gone.
    bool IsOpen() const { return m_file != nullptr; }

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg);
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value);

private:
    int AimedAt(std::uint8_t address);
    void Open();
    bool Answered(const KernelAnswer& answer, const char* action, std::uint8_t address,
                  std::uint8_t reg);
    LinkError Failed(const std::string& what, int error);
    AddressTaken Taken(std::uint8_t address);

    KernelFace& m_kernel;
    Adapter m_adapter;
    std::unique_ptr<OpenFile> m_file;
    std::optional<std::uint8_t> m_aimed;
};

} // namespace tqx
