#pragma once

#include <cstdint>

namespace tqx::sim {

/// A slave on the bus, byte by byte. Both media of the simulated board speak to one chain of
/// these: the chip at its end, and before it whatever listens to or disturbs the transfers.
class ByteSlave {
public:
    virtual ~ByteSlave() = default;

    /// A start condition, or a repeated one, with the address byte that follows it: bit 0 set
    /// means that the master reads. True acknowledges.
    virtual bool Start(std::uint8_t address) = 0;
    /// One byte from the master. True acknowledges.
    virtual bool Write(std::uint8_t value) = 0;
    /// The next byte to the master.
    virtual std::uint8_t Read() = 0;
    virtual void Stop() = 0;

    /// For who listens: a byte has passed on the bus with the acknowledge bit behind it, whoever
    /// sent it and whoever it was for. It comes after the call that took or gave the byte.
    virtual void Passed(std::uint8_t value, bool acknowledged) {
        static_cast<void>(value);
        static_cast<void>(acknowledged);
    }
};

/// A slave that hands everything on to the next one; what stands between overrides its part.
class ForwardingSlave : public ByteSlave {
public:
    /// The next slave must outlive this one.
    explicit ForwardingSlave(ByteSlave& next)
        : m_next(next) {}

    bool Start(std::uint8_t address) override { return m_next.Start(address); }

    bool Write(std::uint8_t value) override { return m_next.Write(value); }

    std::uint8_t Read() override { return m_next.Read(); }

    void Stop() override { m_next.Stop(); }

    void Passed(std::uint8_t value, bool acknowledged) override {
        m_next.Passed(value, acknowledged);
    }

private:
    ByteSlave& m_next;
};

/// The bit of an address byte that says that the master reads.
inline constexpr std::uint8_t ReadBit = 0x01;

/// What the master reads where no slave answers.
inline constexpr std::uint8_t IdleBus = 0xFF;

/// Commands of the chip's block transfers.
/// @{
inline constexpr std::uint8_t BlockWriteCommand = 0xA0;
inline constexpr std::uint8_t BlockReadCommand = 0xA1;
/// @}

/// Most data bytes of a block; a block read always has as many.
inline constexpr std::uint8_t BlockSize = 32;

} // namespace tqx::sim
