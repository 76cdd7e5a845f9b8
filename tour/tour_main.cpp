#include "tour.h"

#include <app/application.h>

#include <QProcess>
#include <QTextStream>

namespace {

constexpr const char* ScaleVariable = "QT_SCALE_FACTOR";

/// The tour once more in a process of its own, since a scale holds for a whole process.
int RunAtTwiceTheScale(const QString& program, const QString& directory) {
    QProcess second;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(ScaleVariable, "2");
    second.setProcessEnvironment(environment);
    second.setProcessChannelMode(QProcess::ForwardedChannels);
    second.start(program, {directory});
    return second.waitForFinished(-1) && second.exitStatus() == QProcess::NormalExit
               ? second.exitCode()
               : 1;
}

} // namespace

/// Usage: tqx7716-tour DIRECTORY
///
/// Exit status: 0 every step did what it should, 1 one did not, 2 no directory to write to.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool twice = qgetenv(ScaleVariable) == "2";
    tqx::Application application(argc, argv);
    QTextStream errors(stderr);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        errors << "usage: tqx7716-tour DIRECTORY\n";
        return 2;
    }

    tqx::Tour tour(QDir(arguments[1]), twice ? "@2x" : "");
    application.OnLinkError = [&](const tqx::LinkError& error) {
        errors << "The link failed: " << error.what() << '\n';
        QCoreApplication::exit(1);
    };
    try {
        tour.Run();
    } catch (const tqx::TourFailure& failure) {
        errors << "The tour failed: " << failure.what() << '\n';
        return 1;
    }
    QTextStream(stdout) << tour.Pictures() << " pictures at " << (twice ? "2x" : "1x") << '\n';
    return twice ? 0 : RunAtTwiceTheScale(QApplication::applicationFilePath(), arguments[1]);
}
