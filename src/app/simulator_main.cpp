#include <app/console_program.h>
#include <simulated/simulated_board.h>

/// The console on the simulated board.
int main(int argc, char** argv) {
    tqx::SimulatedBoard board;
    return tqx::RunConsole(argc, argv, QStringLiteral("org.tqx7716.Simulator"),
                           {board.Factory(), tqx::SimulatedBoard::OSVersionInfoFactory(),
                            QStringLiteral("Simulated board")});
}
