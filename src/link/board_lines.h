#pragma once

#include "link/line_layer.h"
#include "link/parallel_port.h"
#include "printer_ports.h"

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
    /// parked, and the error goes on. Where the port does not let them be parked, that is done
    /// ahead of the next work on it: a slave that was left in the middle of a byte would miss the
    /// start, and take for data what is sent to address it.
    template <typename Work>
    auto Transfer(Work&& work) {
        PrinterPorts::Use use(Ports);
        try {
            if (use.BrokenOff()) {
                Park(use);
            }
            return std::forward<Work>(work)();
        } catch (...) {
            use.BrokenOff(true);
            if (use.Outermost()) {
                TryToPark(use);
            }
            throw;
        }
    }

private:
    void Park(PrinterPorts::Use& use);
    void TryToPark(PrinterPorts::Use& use) noexcept;
};

} // namespace tqx
