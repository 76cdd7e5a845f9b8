#pragma once

#include "linuxboard/kernel_face.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tqx {

/// An I2C or SMBus adapter of this machine. Its number may be another one after the next start of
/// the machine; the name is the driver's.
struct Adapter {
    int Number;
    std::string Name;

    std::string Node() const { return "/dev/i2c-" + std::to_string(Number); }

    /// What the kernel tells of it.
    std::string Folder() const { return "/sys/bus/i2c/devices/i2c-" + std::to_string(Number); }

    bool operator==(const Adapter&) const = default;
};

/// True for the host controller of a chipset, by the name that its driver gives.
bool IsHostController(std::string_view name);

/// The adapters on which the chip may be, in the order in which they are tried: host controllers
/// first, then by number. The buses that go to displays are not among them: a monitor hangs on
/// them, and it is not ours to send it anything.
std::vector<Adapter> FindAdapters(KernelFace& kernel);

/// True while the kernel has this adapter.
bool IsThere(KernelFace& kernel, const Adapter& adapter);

/// Base address of a host controller: from its name, otherwise the first I/O range of the device
/// that it belongs to. 0 where neither tells.
std::uint32_t BaseAddressOf(KernelFace& kernel, const Adapter& adapter);

} // namespace tqx
