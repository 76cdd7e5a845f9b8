#include "printer_port/board_lines.h"

namespace tqx {

BoardLines::BoardLines(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
    : Ports(std::move(ports))
    , Lines(Ports, DirectWiring, setup) {}

void BoardLines::Wiring(const BoardWiring& wiring) {
    Lines.Wiring(wiring);
    Ports.LinesUnknown();
}

/// Leaves both lines high and every slave idle.
void BoardLines::Park(PrinterPorts::Use& use) {
    Lines.ParkLines();
    use.Parked(true);
}

/// The error that is on its way out already tells the user what is wrong; a second one would add
/// nothing.
void BoardLines::TryToPark(PrinterPorts::Use& use) noexcept {
    try {
        Park(use);
    } catch (...) {
    }
}

} // namespace tqx
