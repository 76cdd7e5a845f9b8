#include "tour.h"

#include <QApplication>
#include <QDir>
#include <QTextStream>

/// Usage: tqx7716-tour DIRECTORY [SCALE]
///
/// Saves a picture of each view, at twice the size with SCALE 2; its name ends in "@2x" then.
///
/// Exit status: 0 every step did what it should, 1 one did not, 2 no directory to write to.
int main(int argc, char** argv) {
    const QString scale = argc == 3 ? argv[2] : "1"; // ahead of the application, which follows it
    qputenv("QT_SCALE_FACTOR", scale.toUtf8());
    tqx::Tour::FixSurroundings();
    QApplication application(argc, argv);
    tqx::SetUpApplication(application);
    QTextStream errors(stderr);
    const QStringList arguments = QApplication::arguments();
    const QDir directory(QDir().absoluteFilePath(arguments.value(1)));
    if (arguments.size() < 2 || arguments.size() > 3 || !directory.mkpath(".")) {
        errors << "usage: tqx7716-tour DIRECTORY [SCALE]\n";
        return 2;
    }

    int pictures = 0;
    const QString ending = scale == "1" ? ".png" : "@" + scale + "x.png";
    tqx::Tour tour([&](QWidget& window, const QString& name) {
        const QString file = directory.filePath(name + ending);
        if (!window.grab().save(file)) {
            throw tqx::TourFailure("cannot save the picture " + file);
        }
        ++pictures;
    });
    bool linkFailed = false;
    tour.Program().TheBench().Failures = [&](const tqx::LinkError& error) {
        errors << "The link failed: " << error.what() << '\n';
        linkFailed = true;
    };
    try {
        tour.Run();
    } catch (const tqx::TourFailure& failure) {
        errors << "The tour failed: " << failure.what() << '\n';
        return 1;
    }
    if (linkFailed) {
        return 1;
    }
    QTextStream(stdout) << pictures << " pictures at " << scale << "x\n";
    return 0;
}
