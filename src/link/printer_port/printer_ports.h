#pragma once

#include "link/line_port.h"
#include "link/parallel_port.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tqx {

/// The printer ports of the machine, one of them selected, and who holds which of them.
///
/// As a LinePort it is the selected port; everything that touches a register raises LinkError when
/// there is none.
class PrinterPorts : public LinePort {
    struct Slot;

public:
    /// Holds a port for a run of accesses and lets it go on every way out, at the end of a burst if
    /// one is on. After an error it is let go even then, so that the next run takes it anew.
    class Use {
    public:
        /// The selected port.
        explicit Use(PrinterPorts& ports);
        Use(PrinterPorts& ports, Slot& slot);
        ~Use();

        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        /// True when no other Use holds the port around this one.
        bool Outermost() const;

        /// The lines of the port were parked since the last time that a transfer may have broken
        /// off on them.
        /// @{
        bool Parked() const { return m_slot.Parked; }

        void Parked(bool parked) { m_slot.Parked = parked; }

        /// @}

    private:
        PrinterPorts& m_ports;
        Slot& m_slot;
        int m_errors;
    };

    explicit PrinterPorts(std::vector<std::unique_ptr<ParallelPort>> ports);

    std::uint8_t Count() const;
    /// Without ports any index will do.
    void Select(std::uint8_t index);
    /// Selects the port with this base address. Without ports any address will do.
    void SelectAddress(std::uint16_t address);
    void Burst(bool on);
    /// From now on the lines of no port count as parked.
    void LinesUnknown();

    /// Raw access: the data register of any port is written, its status register read.
    /// @{
    void Write(std::uint16_t port, std::uint8_t value);
    std::uint8_t Read(std::uint16_t port);
    /// @}

    /// 0 without ports.
    std::uint16_t PortAddress() override;
    void PortOut(std::uint8_t value) override;
    std::uint8_t PortIn(std::uint16_t port) override;
    void LineDelay(std::chrono::nanoseconds time) override;

private:
    struct Slot {
        std::unique_ptr<ParallelPort> Port;
        int Users = 0;
        bool Held = false;
        bool Parked = false;
    };

    Slot& Selected();
    Slot* Find(std::uint16_t address);
    void Select(Slot& slot);
    bool Kept(const Slot& slot) const;
    static void LetGo(Slot& slot) noexcept;

    std::vector<Slot> m_slots;
    std::size_t m_selected = 0;
    bool m_burst = false;
};

} // namespace tqx
