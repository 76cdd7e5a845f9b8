#include "i2c_smbus.h"

#include "kernel_errors.h"

#include <link/link_error.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <vector>

namespace tqx {

namespace {

/// To it goes what is sent with no chip chosen. On a bus it would be a call to every slave.
constexpr std::uint8_t NoChip = 0;

constexpr std::uint8_t IdentityRegister = 0x16;
constexpr std::uint8_t Identity = 0x41;
constexpr std::array<std::uint8_t, 3> ChipAddresses{0x2C, 0x2D, 0x2E};

LinkError NoAdapter() {
    return {"cannot reach the SMBus", "this machine has no SMBus adapter",
            "Load the driver of the chipset's controller (sudo modprobe i2c-i801 for Intel, sudo "
            "modprobe i2c-piix4 for AMD) and start the program again, or use a printer port."};
}

LinkError AdapterGone(const Adapter& adapter) {
    return Failure("cannot reach " + adapter.Node() + " (" + adapter.Name + ")", ENODEV);
}

} // namespace

I2CSMBus::I2CSMBus(KernelFace& kernel, std::optional<int> only)
    : m_kernel(kernel)
    , m_only(only) {}

std::vector<Adapter> I2CSMBus::Adapters() {
    std::vector<Adapter> adapters = FindAdapters(m_kernel);
    std::erase_if(adapters,
                  [this](const Adapter& each) { return m_only && each.Number != *m_only; });
    return adapters;
}

std::uint32_t I2CSMBus::BaseAddress() {
    const std::vector<Adapter> adapters = Adapters();
    return adapters.empty() ? 0 : BaseAddressOf(m_kernel, adapters.front());
}

std::uint8_t I2CSMBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    if (address == NoChip) {
        return IdleBusByte;
    }
    if (reg == IdentityRegister && address != m_slaveAddress) {
        return Identify(address);
    }
    return BusOf(address).ReadByte(address, reg);
}

void I2CSMBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    if (address != NoChip) {
        BusOf(address).WriteByte(address, reg, value);
    }
}

/// An address that a kernel driver owns is no error while the chip can be had at another: on many
/// machines such drivers have chips of their own there.
std::uint8_t I2CSMBus::Identify(std::uint8_t address) {
    Adapter* const home = HomeOf(address);
    if (home == nullptr) {
        return IdleBusByte;
    }
    try {
        const std::uint8_t value = On(*home).ReadByte(address, IdentityRegister);
        if (value == Identity) {
            m_found.try_emplace(address, *home);
            return value;
        }
        return FindElsewhere(address, *home) ? Identity : value;
    } catch (const AddressTaken&) {
        if (FindElsewhere(address, *home)) {
            return Identity;
        }
        if (FindAtOtherAddress(address)) {
            return IdleBusByte;
        }
        throw;
    } catch (const LinkError&) {
        if (FindElsewhere(address, *home)) {
            return Identity;
        }
        throw;
    }
}

/// Looks for a chip on every adapter but `home`, which was asked. Adapters that fail are passed
/// over: they may be anything, and nobody has said that the chip is there.
bool I2CSMBus::FindElsewhere(std::uint8_t address, const Adapter& home) {
    for (Adapter& adapter : Adapters()) {
        try {
            if (adapter != home && On(adapter).ReadByte(address, IdentityRegister) == Identity) {
                m_found.insert_or_assign(address, adapter);
                return true;
            }
        } catch (const LinkError&) {
            continue;
        }
    }
    return false;
}

bool I2CSMBus::FindAtOtherAddress(std::uint8_t address) {
    const Adapter none{.Number = -1, .Name = {}};
    return std::ranges::any_of(ChipAddresses, [&](std::uint8_t other) {
        return other != address && (m_found.contains(other) || FindElsewhere(other, none));
    });
}

/// Where an address is looked for first; null on a machine without adapters.
Adapter* I2CSMBus::HomeOf(std::uint8_t address) {
    if (const auto found = m_found.find(address); found != m_found.end()) {
        return &found->second;
    }
    if (!m_first) {
        const std::vector<Adapter> adapters = Adapters();
        if (!adapters.empty()) {
            m_first = adapters.front();
        }
    }
    return m_first ? &*m_first : nullptr;
}

I2CBus& I2CSMBus::BusOf(std::uint8_t address) {
    Adapter* const home = HomeOf(address);
    if (home == nullptr) {
        throw NoAdapter();
    }
    return On(*home);
}

/// The bus of an adapter, which may have come back under another number since it was seen.
I2CBus& I2CSMBus::On(Adapter& adapter) {
    if (m_bus && m_bus->IsOpen() && m_bus->TheAdapter() == adapter) {
        return *m_bus;
    }
    if (!IsThere(m_kernel, adapter)) {
        const std::vector<Adapter> adapters = Adapters();
        const auto again = std::ranges::find(adapters, adapter.Name, &Adapter::Name);
        if (again == adapters.end()) {
            m_bus.reset();
            throw AdapterGone(adapter);
        }
        adapter = *again;
    }
    return m_bus.emplace(m_kernel, adapter);
}

} // namespace tqx
