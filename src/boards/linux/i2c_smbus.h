#pragma once

#include "adapters.h"
#include "i2c_bus.h"
#include "linuxboard/kernel_face.h"

#include <link/link_server.h>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace tqx {

/// The SMBus of this machine, whatever adapters it has.
///
/// Asked for the identity of a chip (register 16h), it looks on every adapter, host controllers
/// first, and remembers the one on which 41h came back. From then on that address is found there.
/// An address on which no chip was found belongs to the first adapter.
///
/// Once SlaveAddress says which chip was chosen, its identity is a register like any other: no
/// other chip ever answers in its place.
///
/// A chip that does not answer gives FFh. So does address 0, at which no chip can be, ahead of any
/// adapter; a write to it goes nowhere.
class I2CSMBus : public SMBusLink {
public:
    /// `only`: the number of the one adapter that is looked at; empty: all of them.
    explicit I2CSMBus(KernelFace& kernel, std::optional<int> only = {});

    std::uint8_t SlaveAddress() override { return m_slaveAddress; }
    void SlaveAddress(std::uint8_t address) override { m_slaveAddress = address; }

    /// Of the adapter that is tried first; 0 where there is none or it does not tell.
    std::uint32_t BaseAddress() override;

    std::uint8_t ReadByte(std::uint8_t address, std::uint8_t reg) override;
    void WriteByte(std::uint8_t address, std::uint8_t reg, std::uint8_t value) override;

private:
    std::vector<Adapter> Adapters();
    std::uint8_t Identify(std::uint8_t address);
    bool FindElsewhere(std::uint8_t address, const Adapter& home);
    bool FindAtOtherAddress(std::uint8_t address);
    Adapter* HomeOf(std::uint8_t address);
    I2CBus& BusOf(std::uint8_t address);
    I2CBus& On(Adapter& adapter);

    KernelFace& m_kernel;
    std::optional<int> m_only;
    std::uint8_t m_slaveAddress = 0;
    /// Where a chip was found, by its address.
    std::map<std::uint8_t, Adapter> m_found;
    /// Where all other addresses are looked for, once one of them was asked for.
    std::optional<Adapter> m_first;
    /// The adapter of the last transfer: one node is open at a time.
    std::optional<I2CBus> m_bus;
};

} // namespace tqx
