#pragma once

#include "link/parallel_port.h"
#include "printer_port/line_layer.h"
#include "printer_port/printer_ports.h"

#include <memory>
#include <utility>
#include <vector>

namespace tqx {

/// The bus lines on the selected printer port, and the frame that all traffic on them runs in.
class BoardLines {
public:
    BoardLines(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup);

    PrinterPorts Ports;
    LineLayer Lines;

    /// Does `work`, which drives the lines, while the port is held. When it raises, the lines are
    /// parked, and the error goes on.
    ///
    /// They are parked ahead of the work as well where a slave may be in the middle of a byte, as
    /// it would miss the start and take for data what is sent to address it: on the first use of a
    /// port, since a program before this one may have been killed; with another wiring; and after
    /// an error where the port did not let them be parked.
    template <typename Work>
    auto Transfer(Work&& work) {
        PrinterPorts::Use use(Ports);
        try {
            if (!use.Parked()) {
                Park(use);
            }
            return std::forward<Work>(work)();
        } catch (...) {
            use.Parked(false);
            if (use.Outermost()) {
                TryToPark(use);
            }
            throw;
        }
    }

    /// How the board takes the line states from now on.
    void Wiring(const BoardWiring& wiring);

private:
    void Park(PrinterPorts::Use& use);
    void TryToPark(PrinterPorts::Use& use) noexcept;
};

} // namespace tqx
