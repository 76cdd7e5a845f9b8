// One tick of the monitor on the voltage group and the voltage tab, with a link that costs nothing:
// what the program itself takes of the time between two ticks.

#include "control_centre/control_centre.h"

#include <controls/linear_gauge.h>
#include <controls/strip_chart.h>
#include <device/bench.h>

#include <QApplication>
#include <QTabWidget>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <memory>
#include <stdexcept>

namespace tqx {
namespace {

using namespace std::chrono_literals;

constexpr int TicksPerSecond = 200;
constexpr int FramesPerSecond = 60;

[[noreturn]] void NotPartOfATick() {
    throw std::logic_error("a tick does not call this");
}

/// Answers every read at once with a byte that wanders, so that gauge, traces and lamps all move.
class FreeLink : public LinkServer, public PrinterPortLink, public SMBusLink {
public:
    std::uint8_t ReadByte(std::uint8_t, std::uint8_t reg) override {
        return static_cast<std::uint8_t>(reg + (m_reads++ >> 5U));
    }

    void WriteByte(std::uint8_t, std::uint8_t, std::uint8_t) override {}

    void BurstMode(bool) override {}

    tqx::PrinterPortLink& PrinterPortLink() override { return *this; }

    tqx::SMBusLink& SMBusLink() override { return *this; }

    std::int16_t ActiveMedium() override { return ActiveSMBus; }

    void ActiveMedium(std::int16_t) override {}

    std::uint8_t SlaveAddress() override { return 0x2C; }

    void SlaveAddress(std::uint8_t) override {}

    std::uint32_t BaseAddress() override { return 0; }

    std::uint8_t PortCount() override { return 0; }

    void PortIndex(std::uint8_t) override {}

    std::uint16_t PortAddress() override { return 0; }

    tqx::BoardBus& BoardBus() override { NotPartOfATick(); }

    tqx::EEPROMLink& EEPROMLink() override { NotPartOfATick(); }

private:
    unsigned m_reads = 0;
};

/// The control centre at the size of the main window, watching the voltages.
class Monitor {
public:
    Monitor() {
        m_bench.Channels.ConfigureChannels();
        Chart().Clock({[this] { return m_now; },
                       [this] {
                           return std::chrono::system_clock::time_point(
                               std::chrono::duration_cast<std::chrono::microseconds>(m_now));
                       }});
        m_panel.resize(1120, 620);
        m_panel.SelectedChannel = 18;
        m_panel.StripGroup = 1;
        m_panel.SetUpDisplay();
        m_panel.findChild<QTabWidget*>(QStringLiteral("BargraphTab"))->setCurrentIndex(2);
        m_panel.show();
        QCoreApplication::processEvents(); // nothing is painted before the window is exposed
        m_gauge->installEventFilter(&m_paints);
        Chart().installEventFilter(&m_paints);
    }

    void Tick() {
        m_now += 1000000000ns / TicksPerSecond;
        m_panel.BargraphTick();
    }

    /// What a screen frame does: the chart's new columns, and whatever else has changed.
    void Paint() {
        Chart().DrawFrame();
        QEvent request(QEvent::UpdateRequest);
        QApplication::sendEvent(&m_panel, &request);
    }

    /// How often the gauge and the chart were painted.
    int Paints() const { return m_paints.Count; }

private:
    struct PaintCounter : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            Count += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }

        int Count = 0;
    };

    StripChart& Chart() { return *m_chart; }

    std::chrono::nanoseconds m_now = 0ns;
    Bench m_bench{[](const LinkSetup&) { return std::make_unique<FreeLink>(); }};
    ControlCentre m_panel{m_bench};
    PaintCounter m_paints;
    LinearGauge* m_gauge = m_panel.findChild<LinearGauge*>(QStringLiteral("limits_gauge"));
    StripChart* m_chart = m_panel.findChild<StripChart*>(QStringLiteral("MainStripChart"));
};

void TickWithoutPainting(benchmark::State& state) {
    Monitor monitor;
    while (state.KeepRunning()) {
        monitor.Tick();
    }
}

void TickWithPainting(benchmark::State& state) {
    Monitor monitor;
    int due = 0;
    while (state.KeepRunning()) {
        monitor.Tick();
        due += FramesPerSecond;
        if (due >= TicksPerSecond) {
            due -= TicksPerSecond;
            monitor.Paint();
        }
    }
    state.counters["paints per tick"] =
        benchmark::Counter(monitor.Paints(), benchmark::Counter::kAvgIterations);
}

BENCHMARK(TickWithoutPainting)->Unit(benchmark::kMicrosecond);
BENCHMARK(TickWithPainting)->Unit(benchmark::kMicrosecond)->MinTime(2.0);

} // namespace
} // namespace tqx
