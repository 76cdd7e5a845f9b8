#include "i2c_bus.h"

#include "kernel_errors.h"

#include <cerrno>
#include <cstdio>
#include <linux/i2c.h>
#include <utility>

namespace tqx {

namespace {

std::string Hex(unsigned value) {
    char text[12];
    std::snprintf(text, sizeof text, "%02Xh", value);
    return text;
}

} // namespace

I2CBus::I2CBus(KernelFace& kernel, Adapter adapter)
    : m_kernel(kernel)
    , m_adapter(std::move(adapter)) {}

std::uint8_t I2CBus::ReadByte(std::uint8_t address, std::uint8_t reg) {
    const int file = AimedAt(address);
    const KernelAnswer answer = m_kernel.SMBusReadByte(file, reg);
    if (Answered(answer, "read", address, reg)) {
        return static_cast<std::uint8_t>(answer.Value);
    }
    return IdleBusByte;
}

void I2CBus::WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) {
    const int file = AimedAt(address);
    Answered(m_kernel.SMBusWriteByte(file, reg, value), "write", address, reg);
}

/// The node, open and aimed.
int I2CBus::AimedAt(std::uint8_t address) {
    if (!m_file) {
        Open();
    }
    if (m_aimed == address) {
        return m_file->File();
    }
    m_aimed.reset();
    const KernelAnswer aimed = m_kernel.I2CAddress(m_file->File(), address);
    if (aimed.Error == EBUSY) {
        throw Taken(address);
    }
    if (aimed.Error != 0) {
        throw Failed("cannot reach " + Hex(address) + " on " + m_adapter.Node(), aimed.Error);
    }
    m_aimed = address;
    return m_file->File();
}

/// An adapter that cannot do byte transfers is found out here, ahead of any transfer.
void I2CBus::Open() {
    const KernelAnswer opened = m_kernel.OpenNode(m_adapter.Node());
    if (opened.Error != 0) {
        throw CannotOpen(m_kernel, m_adapter.Node(), "i2c-dev", opened.Error);
    }
    auto file = std::make_unique<OpenFile>(m_kernel, static_cast<int>(opened.Value));
    const KernelAnswer functions = m_kernel.I2CFunctions(file->File());
    const std::string what = "cannot use " + m_adapter.Node() + " (" + m_adapter.Name + ")";
    if (functions.Error != 0) {
        throw Failure(what, functions.Error);
    }
    constexpr unsigned long needed = I2C_FUNC_SMBUS_BYTE_DATA;
    if ((functions.Value & needed) != needed) {
        throw LinkError(what, "the adapter cannot do SMBus byte transfers",
                        "Connect the chip to another adapter.");
    }
    m_file = std::move(file);
    m_aimed.reset();
}

/// False when nobody took the address. Most adapters tell that with ENXIO, some with EREMOTEIO, a
/// few with ENODEV; an adapter that was pulled out tells the same, and is then kept by the kernel
/// until its node is closed.
bool I2CBus::Answered(const KernelAnswer& answer, const char* action, std::uint8_t address,
                      std::uint8_t reg) {
    switch (answer.Error) {
    case 0:
        return true;
    case ENXIO:
    case EREMOTEIO:
    case ENODEV:
        if (IsThere(m_kernel, m_adapter)) {
            return false;
        }
        break;
    default:
        break;
    }
    throw Failed(std::string("cannot ") + action + " register " + Hex(reg) + " of " + Hex(address) +
                     " on " + m_adapter.Node() + " (" + m_adapter.Name + ")",
                 answer.Error);
}

LinkError I2CBus::Failed(const std::string& what, int error) {
    if (MeansGone(error) || !IsThere(m_kernel, m_adapter)) {
        m_file.reset();
        error = ENODEV;
    }
    return Failure(what, error);
}

/// The driver stays where it is: it may be in the middle of its own work with its chip.
AddressTaken I2CBus::Taken(std::uint8_t address) {
    char device[16];
    std::snprintf(device, sizeof device, "%d-%04x", m_adapter.Number, address);
    const std::string path =
        m_kernel.RealPath("/sys/bus/i2c/devices/" + std::string(device) + "/driver");
    const std::string driver = path.substr(path.rfind('/') + 1);
    return {"cannot use " + Hex(address) + " on " + m_adapter.Node(),
            "the kernel driver " + driver + " owns this address",
            "If that chip is the TQX7716, release it from the driver: echo " + std::string(device) +
                " | sudo tee /sys/bus/i2c/drivers/" + driver + "/unbind."};
}

} // namespace tqx
