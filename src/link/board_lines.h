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
    /// parked as far as the port lets it, and the error goes on.
    template <typename Work>
    auto Transfer(Work&& work) {
        const PrinterPorts::Use use(Ports);
        try {
            return std::forward<Work>(work)();
        } catch (...) {
            if (use.Outermost()) {
                Park();
            }
            throw;
        }
    }

private:
    void Park() noexcept;
};

} // namespace tqx
