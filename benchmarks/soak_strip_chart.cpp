// Runs the strip chart for a simulated day of 17 traces at 100 ticks a second, drawn 60 times a
// second in part of it, while a hand zooms, pans, freezes and lets go. At the end it says whether
// the chart's memory stayed within its bound and whether the peaks that were hidden in the run are
// still there. Not a part of the ordinary tests: it takes a minute or two.
//
//   soak_strip_chart [hours=24]

#include "support/answered_dialogs.h"

#include <controls/strip_chart.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace std::chrono_literals;

constexpr int TraceCount = 17;
constexpr long TicksPerHour = 3600L * 100;
constexpr long BoundKb = 48L * 1024;
constexpr double Peak = 14.0; ///< far above everything else

long ResidentKb() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("VmRSS:")) {
                return line.mid(6).simplified().split(' ').front().toLong();
            }
        }
    }
    return 0;
}

/// A hand that never rests.
void Fidget(tqx::StripChart& chart, long step) {
    switch (step % 6) {
    case 0:
        chart.Freeze(true);
        break;
    case 1:
        chart.Freeze(false);
        break;
    case 2:
        chart.ShowWholeRun();
        break;
    case 3:
        chart.resize(900 - static_cast<int>(step % 7) * 30, 420);
        break;
    case 4:
        chart.Picture();
        break;
    default:
        chart.ShowLive();
        break;
    }
}

/// How many rows of the export of all samples hold a peak.
long PeaksExported(tqx::StripChart& chart) {
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("all.csv"));
    tqx::test::AnsweredDialogs dialogs;
    dialogs.FileName = name;
    chart.Dialogs(dialogs);
    chart.ExportSamples(true);
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().count(",14,") : 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::string argument = argc > 1 ? argv[1] : "hours=24";
    const long hours = std::atol(argument.substr(argument.find('=') + 1).c_str());
    std::chrono::nanoseconds now{0};
    tqx::StripChart chart;
    chart.Clock({[&now] { return now; },
                 [&now] { return std::chrono::system_clock::time_point(1'700'000'000s + now); }});
    chart.YCeiling(16);
    chart.YHigh(16);
    chart.resize(900, 420);
    chart.show();
    QCoreApplication::processEvents();
    const long before = ResidentKb();
    long most = before;
    for (long tick = 0; tick < hours * TicksPerHour; ++tick) {
        now += 10ms;
        const bool peak = tick % TicksPerHour == TicksPerHour / 2;
        for (int trace = 0; trace < TraceCount; ++trace) {
            const double wave = std::sin(static_cast<double>((tick + trace) & 0xFFF) * 0.0015);
            chart.AddStripPoint(static_cast<std::int16_t>(trace),
                                peak && trace == 3 ? Peak : 3 + wave + 0.5 * trace);
        }
        if (tick % 3000 < 300 && tick % 2 == 0) { // a tenth of the time under the eye
            chart.DrawFrame();
            QCoreApplication::processEvents();
        }
        if (tick % 3000 == 0) {
            Fidget(chart, tick / 3000);
        }
        if (tick % TicksPerHour == TicksPerHour - 1) {
            most = std::max(most, ResidentKb());
            std::printf("hour=%ld rss_kb=%ld\n", tick / TicksPerHour + 1, ResidentKb());
        }
    }
    const long taken = most - before;
    const long peaks = PeaksExported(chart);
    std::printf("hours=%ld chart_kb=%ld bound_kb=%ld peaks=%ld of %ld\n", hours, taken, BoundKb,
                peaks, hours);
    return taken < BoundKb && peaks == hours ? EXIT_SUCCESS : EXIT_FAILURE;
}
