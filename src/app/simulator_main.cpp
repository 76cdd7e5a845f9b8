#include "app/console_program.h"

#include <simulated/simulated_board.h>
#include <simulator/board_window.h>

#include <memory>

/// The console on the simulated board, whose own window stands beside it.
int main(int argc, char** argv) {
    tqx::sim::SimulatedBoard board;
    return tqx::RunConsole(argc, argv, QStringLiteral("org.tqx7716.Simulator"),
                           {board.Factory(), tqx::sim::SimulatedBoard::OSVersionInfoFactory(),
                            QStringLiteral("Simulated board"),
                            [&] { return std::make_unique<tqx::BoardWindow>(board); }});
}
