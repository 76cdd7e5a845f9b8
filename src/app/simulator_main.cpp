#include <app/console_program.h>
#include <simulated/simulated_board.h>

/// The console on the simulated board.
int main(int argc, char** argv) {
    tqx::SimulatedBoard board;
    return tqx::RunConsole(argc, argv,
                           {board.Factory(), tqx::SimulatedBoard::OSVersionInfoFactory(),
                            QStringLiteral("Simulated board")});
}
