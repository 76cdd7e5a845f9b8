#include "board_lines.h"

namespace tqx {

BoardLines::BoardLines(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
    : Ports(std::move(ports))
    , Lines(Ports, DirectWiring, setup) {}

/// Parking leaves both lines high and every slave idle. The error that is on its way out already
/// tells the user what is wrong; a second one would add nothing.
void BoardLines::Park() noexcept {
    try {
        Lines.ParkLines();
    } catch (...) {
    }
}

} // namespace tqx
