#include "daemon.h"
#include "port_state.h"
#include "ppdev_port.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace tqx {
namespace {

constexpr int Patience = 10000; // milliseconds

/// The program on a printer port of a made-up kernel, on a display that dies.
class LostDisplay : public testing::TestWithParam<const char*> {
protected:
    QTemporaryDir folder;
    std::string path = folder.filePath("port").toStdString();
    test::XServer display;
    QProcess program;

    LostDisplay() { const std::ofstream made(path); }

    test::PortState Port() const { return test::PortState::Of(path); }

    void Start(const QString& work) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", QString::fromStdString(display.Display()));
        program.setProcessEnvironment(environment);
        program.start(TQX_LOST_DISPLAY_PROGRAM, {QString::fromStdString(path), work});
    }
};

TEST_P(LostDisplay, EndsTheProgramWithThePortParkedAndLetGo) {
    Start(GetParam());
    ASSERT_TRUE(QTest::qWaitFor([&] { return Port().AtWork; }, Patience))
        << program.readAllStandardError().toStdString();
    display.Kill();
    ASSERT_TRUE(program.waitForFinished(Patience));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_FALSE(Port().Claimed);
    EXPECT_EQ(Port().Lines, ParkedLines);
}

INSTANTIATE_TEST_SUITE_P(At, LostDisplay, testing::Values("Monitor", "Transfer"),
                         [](const auto& work) { return std::string(work.param); });

} // namespace
} // namespace tqx
