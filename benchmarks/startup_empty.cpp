#include "first_paint.h"

#include <QWidget>

/// An empty Qt Widgets program that ends at its first paint: what the wizard's start is held
/// against.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tqx::QuitAtFirstPaint quit;
    application.installEventFilter(&quit);
    QWidget window;
    window.resize(640, 440);
    window.show();
    return QApplication::exec();
}
