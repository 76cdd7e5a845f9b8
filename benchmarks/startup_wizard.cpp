#include "first_paint.h"

#include <app/console_program.h>
#include <simulated/simulated_board.h>

#include <QApplication>

/// The console on the simulated board, ended at the wizard's first paint.
int main(int argc, char** argv) {
    tqx::sim::SimulatedBoard board;
    QApplication application(argc, argv);
    tqx::SetUpApplication(application);
    tqx::QuitAtFirstPaint quit;
    application.installEventFilter(&quit);
    tqx::DesktopDialogs dialogs;
    tqx::ConsoleProgram program(
        {board.Factory(), tqx::sim::SimulatedBoard::OSVersionInfoFactory(), {}}, dialogs);
    program.Start();
    return QApplication::exec();
}
