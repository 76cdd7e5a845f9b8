// The running monitor on a bus of 100 kHz in real time: how much of the tick rate that the bus
// allows it reaches, and how long a click waits for its answer meanwhile. The real main window on
// the simulated board, with everything painted that a screen would show.
//
// Arguments: seconds=N for the tick rate (10), clicks=N (100).

#include "control_centre/monitor_rows.h"

#include <console/main_form.h>
#include <controls/look.h>
#include <controls/row_label.h>
#include <controls/strip_chart.h>
#include <controls/system_dialogs.h>
#include <device/bench.h>
#include <simulated/simulated_board.h>
#include <tools/tools.h>

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double BusHertz = 100000;
constexpr int ReadsPerTick = 21; ///< one for the gauge, 17 for the chart, three for the lamps
constexpr int BitTimesPerRead = 39;
constexpr double TicksThatTheBusAllows = BusHertz / (ReadsPerTick * BitTimesPerRead);

constexpr int VoltHeading = 1;
constexpr int Row12V = 18;
constexpr int RowVccp = 19;

struct Medium {
    const char* Name;
    std::uint8_t ComsMedium;
    std::uint8_t SlaveAddress;
};

constexpr std::array<Medium, 2> Media{{
    {"smbus", ComsSMBus, 0x2C},
    {"printer_port", ComsPrinterPort, 0x58},
}};

int Argument(int argc, char** argv, std::string_view name, int otherwise) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument.substr(0, name.size()) == name && argument.substr(name.size(), 1) == "=") {
            return std::max(1, std::atoi(argument.data() + name.size() + 1));
        }
    }
    return otherwise;
}

/// Calls back at each paint of what it watches.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(std::function<void(QObject* painted)> painted)
        : m_painted(std::move(painted)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            m_painted(watched);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void(QObject*)> m_painted;
};

/// The main window with its monitor running on the voltages.
class RunningMonitor {
public:
    explicit RunningMonitor(const Medium& medium) {
        m_bench.Bus.BusCell.ComsMedium = medium.ComsMedium;
        m_bench.Bus.BusCell.SlaveAddress = medium.SlaveAddress;
        m_bench.Bus.BusCell.PortAddress = 0x378;
        m_form.show();
        Find<QAction>("ControlPanel1").trigger();
        Find<QTabWidget>("BargraphTab").setCurrentIndex(static_cast<int>(MonitorTab::Volt));
        Click(Row(Row12V));
        Click(Row(VoltHeading));
        m_board.BusHertz(BusHertz);
        QTest::qWait(500);
    }

    void MeasureTicks(const Medium& medium, int seconds) {
        int ticks = 0;
        int paints = 0;
        auto& timer = Find<QTimer>("BargraphTimer");
        const auto count = QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
        PaintWatch watch([&](QObject*) { ++paints; });
        Find<StripChart>("MainStripChart").installEventFilter(&watch);
        const auto start = SteadyClock::now();
        QTest::qWait(seconds * 1000);
        const double took = std::chrono::duration<double>(SteadyClock::now() - start).count();
        QObject::disconnect(count);
        std::printf(
            "medium=%s ticks_per_s=%.1f bus_allows=%.1f share=%.1f%% chart_paints_per_s=%.0f\n",
            medium.Name, ticks / took, TicksThatTheBusAllows,
            100 * ticks / took / TicksThatTheBusAllows, paints / took);
    }

    /// Clicks come at odd moments from another thread, as a hand's do, and go to two rows in turn.
    void MeasureClicks(const Medium& medium, int clicks) {
        std::vector<double> waits;
        SteadyClock::time_point clickedAt;
        QWidget* waitingFor = nullptr;
        PaintWatch watch([&](QObject* painted) {
            const auto& row = static_cast<RowLabel&>(*painted);
            if (&row == waitingFor && row.ForeColor() == RowColour::Selected) {
                waits.push_back(Milliseconds(SteadyClock::now() - clickedAt).count());
                waitingFor = nullptr;
            }
        });
        Row(Row12V).installEventFilter(&watch);
        Row(RowVccp).installEventFilter(&watch);
        std::mt19937 random(1);
        std::uniform_int_distribution<int> pause(20, 60);
        for (int click = 0; click < clicks; ++click) {
            QTest::qWait(pause(random));
            RowLabel& row = Row(click % 2 == 0 ? RowVccp : Row12V);
            waitingFor = &row;
            std::thread hand([&] {
                std::this_thread::sleep_for(1ms * (pause(random) % 17));
                clickedAt = SteadyClock::now();
                Post(row, QEvent::MouseButtonPress);
                Post(row, QEvent::MouseButtonRelease);
            });
            const bool answered = QTest::qWaitFor([&] { return waitingFor == nullptr; });
            hand.join();
            if (!answered) {
                std::printf("medium=%s click %d had no answer\n", medium.Name, click);
                return;
            }
        }
        std::sort(waits.begin(), waits.end());
        std::printf("medium=%s clicks=%zu click_ms_median=%.1f click_ms_worst=%.1f\n", medium.Name,
                    waits.size(), waits[waits.size() / 2], waits.back());
    }

private:
    template <class Type>
    Type& Find(const char* name) {
        return *m_form.findChild<Type*>(QLatin1String(name));
    }

    RowLabel& Row(int row) {
        return *m_form.findChild<RowLabel*>(QStringLiteral("visualdisplaytext(%1)").arg(row));
    }

    static void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

    static void Post(QWidget& widget, QEvent::Type type) {
        const QPointF at = QRectF(widget.rect()).center();
        QCoreApplication::postEvent(
            &widget, new QMouseEvent(type, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }

    sim::SimulatedBoard m_board;
    Bench m_bench{m_board.Factory()};
    DesktopDialogs m_dialogs;
    Tools m_tools{m_dialogs};
    MainForm m_form{m_bench, m_tools};
};

} // namespace
} // namespace tqx

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tqx::look::Apply(application);
    for (const tqx::Medium& medium : tqx::Media) {
        tqx::RunningMonitor monitor(medium);
        monitor.MeasureTicks(medium, tqx::Argument(argc, argv, "seconds", 10));
        monitor.MeasureClicks(medium, tqx::Argument(argc, argv, "clicks", 100));
    }
}
