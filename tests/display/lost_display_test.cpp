#include "daemon.h"
#include "port_state.h"

#include <QFile>
#include <QLibraryInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace tqx {
namespace {

constexpr int Patience = 40000; // milliseconds; half a second will do on a machine at rest

/// The program on a printer port of a made-up kernel, on a display that dies.
class LostDisplay : public testing::TestWithParam<const char*> {
protected:
    QTemporaryDir folder;
    std::string path = folder.filePath("port").toStdString();
    QProcess program;

    LostDisplay() { const std::ofstream made(path); }

    test::PortState Port() const { return test::PortState::Of(path); }

    /// Runs the program on `display`, which `platform` and `variable` lead it to, and has that die
    /// under its work.
    void Lose(test::Daemon& display, const char* platform, const char* variable,
              const std::string& name) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        environment.insert(variable, QString::fromStdString(name));
        program.setProcessEnvironment(environment);
        program.start(TQX_LOST_DISPLAY_PROGRAM, {QString::fromStdString(path), GetParam()});
        ASSERT_TRUE(QTest::qWaitFor([&] { return Port().AtWork; }, Patience))
            << program.readAllStandardError().toStdString();
        display.Kill();
        ASSERT_TRUE(program.waitForFinished(Patience));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 1);
        EXPECT_FALSE(Port().Claimed);
    }
};

TEST_P(LostDisplay, OnX11EndsTheProgramWithThePortParkedAndLetGo) {
    test::XServer display;
    Lose(display, "xcb", "DISPLAY", display.Display());
}

TEST_P(LostDisplay, OnWaylandEndsTheProgramWithThePortParkedAndLetGo) {
    const QString plugins =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/wayland-shell-integration";
    if (!QFile::exists(TQX_WESTON) || !QFile::exists(plugins)) {
        GTEST_SKIP() << "weston and qt6-wayland are not installed";
    }
    const QString socket = folder.filePath("wayland");
    test::Compositor display(socket.toStdString());
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(socket); }, Patience));
    Lose(display, "wayland", "WAYLAND_DISPLAY", socket.toStdString());
}

INSTANTIATE_TEST_SUITE_P(At, LostDisplay, testing::Values("Monitor", "Transfer"),
                         [](const auto& work) { return std::string(work.param); });

} // namespace
} // namespace tqx
