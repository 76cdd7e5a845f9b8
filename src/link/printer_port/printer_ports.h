#pragma once

#include "link/board_wiring.h"
#include "link/link_root.h"
#include "link/parallel_port.h"
#include "printer_port/line_layer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tqx {

/// The printer ports of the machine with the bus lines on each of them, one selected, and who holds
/// which: the frame that all traffic on the lines runs in.
///
/// Everything that touches a register raises LinkError when there is no port.
class PrinterPorts {
public:
    /// The setup must outlive the ports.
    PrinterPorts(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup);

    std::uint8_t Count() const;
    /// Without ports any index will do.
    void Select(std::uint8_t index);
    /// Selects the port with this base address. Without ports any address will do.
    void SelectAddress(std::uint16_t address);
    /// Base address of the selected port; 0 without ports.
    std::uint16_t PortAddress();
    void Burst(bool on);
    /// How the board takes the line states from now on.
    void Wiring(const BoardWiring& wiring);

    /// Does `work` with the lines of the selected port, which is held meanwhile. When it raises,
    /// the lines are parked, and the error goes on.
    ///
    /// They are parked ahead of the work as well where a slave may be in the middle of a byte, as
    /// it would miss the start and take for data what is sent to address it: on the first use of a
    /// port, since a program before this one may have been killed; with another wiring; and after
    /// an error where the port did not let them be parked.
    template <typename Work>
    auto Transfer(Work&& work) {
        Slot& slot = Selected();
        const Use use(*this, slot);
        try {
            if (!slot.Parked) {
                Park(slot);
            }
            return std::forward<Work>(work)(slot.Lines);
        } catch (...) {
            slot.Parked = false;
            if (slot.Users == 1) {
                TryToPark(slot);
            }
            throw;
        }
    }

    /// Raw access: the data register of any port is written, its status register read.
    /// @{
    void Write(std::uint16_t port, std::uint8_t value);
    std::uint8_t Read(std::uint16_t port);
    /// @}

private:
    struct Slot {
        Slot(std::unique_ptr<ParallelPort> port, const LinkSetup& setup)
            : Port(std::move(port))
            , Lines(*Port, DirectWiring, setup) {}

        std::unique_ptr<ParallelPort> Port;
        LineLayer Lines;
        int Users = 0;
        bool Held = false;
        /// Since the last time that a transfer may have broken off on the lines.
        bool Parked = false;
    };

    /// Holds a port for a run of accesses and lets it go on every way out, at the end of a burst if
    /// one is on. After an error it is let go even then, so that the next run takes it anew.
    class Use {
    public:
        Use(PrinterPorts& ports, Slot& slot);
        ~Use();

        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

    private:
        PrinterPorts& m_ports;
        Slot& m_slot;
        int m_errors;
    };

    Slot& Selected();
    Slot* Find(std::uint16_t address);
    void Select(Slot& slot);
    bool Kept(const Slot& slot) const;
    static void LetGo(Slot& slot) noexcept;
    static void Park(Slot& slot);
    static void TryToPark(Slot& slot) noexcept;

    std::vector<Slot> m_slots;
    std::size_t m_selected = 0;
    bool m_burst = false;
};

} // namespace tqx
