#include "first_paint.h"

#include <controls/look.h>

#include <QLabel>
#include <QVBoxLayout>

/// Nothing but two lines of text in the sizes of the wizard's first page, ended at its first paint:
/// what text alone costs a start.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tqx::QuitAtFirstPaint quit;
    application.installEventFilter(&quit);
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* title = new QLabel("This wizard finds any chip");
    title->setFont(tqx::look::WordsFont(tqx::look::Size::Title, tqx::look::Strong));
    auto* text = new QLabel("Click to start.");
    text->setFont(tqx::look::WordsFont());
    column->addWidget(title);
    column->addWidget(text);
    window.resize(640, 440);
    window.show();
    return QApplication::exec();
}
