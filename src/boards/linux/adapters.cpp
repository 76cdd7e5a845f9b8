#include "adapters.h"

#include "kernel_files.h"

#include <algorithm>
#include <optional>
#include <sstream>

namespace tqx {

namespace {

constexpr std::string_view AdaptersFolder = "/sys/bus/i2c/devices";

std::optional<std::string> NameOf(KernelFace& kernel, int number) {
    const Adapter adapter{.Number = number, .Name = {}};
    return ReadSmallFile(kernel, adapter.Folder() + "/name");
}

/// The adapter belongs to a graphics device, or to one of its connectors.
bool GoesToDisplay(KernelFace& kernel, const Adapter& adapter) {
    constexpr std::string_view displayClass = "0x03";
    if (kernel.RealPath(adapter.Folder()).find("/drm/") != std::string::npos) {
        return true;
    }
    const auto deviceClass = ReadSmallFile(kernel, adapter.Folder() + "/../class");
    return deviceClass && deviceClass->starts_with(displayClass);
}

/// The number after the last " at " of a name, as in "SMBus PIIX4 adapter at 0700".
std::optional<std::uint32_t> AddressInName(const std::string& name) {
    constexpr std::string_view before = " at ";
    const std::size_t at = name.rfind(before);
    if (at == std::string::npos) {
        return std::nullopt;
    }
    return WholeNumber(std::string_view(name).substr(at + before.size()), 16);
}

/// The first I/O range of a PCI device. A line of its `resource` is start, end and flags.
std::optional<std::uint32_t> FirstIORange(const std::string& resource) {
    constexpr std::uint32_t ioFlag = 0x100;
    std::istringstream lines(resource);
    std::string start;
    std::string end;
    std::string flags;
    while (lines >> start >> end >> flags) {
        if ((WholeNumber(flags, 16).value_or(0) & ioFlag) != 0) {
            return WholeNumber(start, 16);
        }
    }
    return std::nullopt;
}

} // namespace

/// The drivers of host controllers call them an SMBus adapter, each in a way of its own: "SMBus
/// I801 adapter at 0700", "SiS96x SMBus adapter at 0x5000", "SMBus ALi 1563 Adapter @ 5000".
bool IsHostController(std::string_view name) {
    return name.find("SMBus") != std::string_view::npos &&
           name.find("dapter") != std::string_view::npos;
}

std::vector<Adapter> FindAdapters(KernelFace& kernel) {
    std::vector<Adapter> adapters;
    for (const std::string& entry : kernel.List(std::string(AdaptersFolder))) {
        const auto number = NumberAfter("i2c-", entry);
        const auto name = number ? NameOf(kernel, *number) : std::nullopt;
        if (!name) {
            continue;
        }
        const Adapter adapter{.Number = *number, .Name = *name};
        if (!GoesToDisplay(kernel, adapter)) {
            adapters.push_back(adapter);
        }
    }
    std::ranges::sort(adapters, {}, [](const Adapter& adapter) {
        return std::pair(!IsHostController(adapter.Name), adapter.Number);
    });
    return adapters;
}

bool IsThere(KernelFace& kernel, const Adapter& adapter) {
    return NameOf(kernel, adapter.Number) == adapter.Name;
}

std::uint32_t BaseAddressOf(KernelFace& kernel, const Adapter& adapter) {
    if (const auto address = AddressInName(adapter.Name)) {
        return *address;
    }
    const auto resource = ReadSmallFile(kernel, adapter.Folder() + "/../resource");
    return resource ? FirstIORange(*resource).value_or(0) : 0;
}

} // namespace tqx
