#include "app/console_program.h"

#include <linuxboard/linux_board.h>

/// The console on the machine's own ports.
int main(int argc, char** argv) {
    tqx::LinuxBoard board;
    return tqx::RunConsole(argc, argv, QStringLiteral("org.tqx7716.Console"),
                           {board.Factory(), board.OSVersionInfoFactory(), {}});
}
