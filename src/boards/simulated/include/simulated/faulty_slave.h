#pragma once

#include "simulated/byte_slave.h"
#include "simulated/faults.h"

#include <cstdint>

namespace tqx {

/// A bus slave that may not answer, and whose blocks may be short or carry a damaged PEC.
class FaultySlave : public ForwardingSlave {
public:
    /// `address`: the slave's own, in 8-bit form. Both objects must outlive this.
    FaultySlave(ByteSlave& next, std::uint8_t address, Faults& faults);

    /// The slave's own address, from the next start on.
    void Address(std::uint8_t address) { m_address = address; }

    bool Start(std::uint8_t address) override;
    bool Write(std::uint8_t value) override;
    std::uint8_t Read() override;
    void Stop() override;

private:
    bool BlockWritePECNext() const;

    Faults& m_faults;
    std::uint8_t m_address;
    bool m_inTransfer = false;
    bool m_silent = false;
    int m_position = 0; // bytes since the last address
    std::uint8_t m_command = 0;
    std::uint8_t m_count = 0;
};

} // namespace tqx
