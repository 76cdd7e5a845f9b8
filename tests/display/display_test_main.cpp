#include "daemon.h"

#include <app/console_program.h>

#include <QAccessible>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

/// A desktop of the tests' own: a display, and a session bus on which Qt finds the switch for
/// screen readers turned on.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    qunsetenv("AT_SPI_BUS_ADDRESS");
    const tqx::test::XServer display;
    qputenv("DISPLAY", display.Display().c_str());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const tqx::test::SessionBus bus;
    if (display.Address().empty() || bus.Address().empty()) {
        qCritical("Xvfb or dbus-daemon does not start");
        return 1;
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().c_str());
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    QDBusConnection::sessionBus().interface()->startService("org.a11y.Bus");
    QApplication application(argc, argv);
    tqx::SetUpApplication(application);
    if (!QTest::qWaitFor([] { return QAccessible::isActive(); }, 40000)) {
        qCritical("The accessibility bus is not there: is at-spi2-core installed?");
        return 1;
    }
    return RUN_ALL_TESTS();
}
