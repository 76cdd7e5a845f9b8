// What the strip chart costs: 17 traces in a window of 900 x 420, fed 200 times a second and drawn
// 60 times a second, without a screen. Time is simulated, so the loop runs as fast as it can and
// the processor time is what counts.
//
//   mode=run|feed     draw frames, or feed only                      rep=N      printed only
//   hist=N            ticks that are already in the chart            ticks=N    ticks to measure
//   window=60s|all    last minute or whole run on view
//   variant=live|anew draw what is new, or every column every frame  out=FILE   save the picture
//   budget=SECONDS    stop measuring after this long
//
// Each run prints one line of key=value, so that it can stand beside what other charts cost.

#include <controls/strip_chart.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <numbers>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

constexpr int TraceCount = 17;
constexpr long TicksPerSecond = 200;
constexpr long FramesPerSecond = 60;
constexpr std::chrono::nanoseconds TickTime{1'000'000'000 / TicksPerSecond};

/// The arguments, key=value each.
class Arguments {
public:
    Arguments(int count, char** values) {
        for (int i = 1; i < count; ++i) {
            const std::string argument = values[i];
            const std::size_t split = argument.find('=');
            if (split == std::string::npos) {
                std::fprintf(stderr, "not of the form key=value: %s\n", values[i]);
                std::exit(2);
            }
            m_values[argument.substr(0, split)] = argument.substr(split + 1);
        }
    }

    std::string Text(const std::string& key, const std::string& otherwise) const {
        const auto found = m_values.find(key);
        return found != m_values.end() ? found->second : otherwise;
    }

    long Number(const std::string& key, long otherwise) const {
        const auto found = m_values.find(key);
        return found != m_values.end() ? std::atol(found->second.c_str()) : otherwise;
    }

private:
    std::map<std::string, std::string> m_values;
};

/// Slow sines with a little noise in 0 to 100. Everything is looked up, so that making a sample
/// costs next to nothing. The sines take `period` ticks, at least SlowCount.
class Waves {
public:
    explicit Waves(long period)
        : m_stretch(static_cast<double>(SlowCount) /
                    static_cast<double>(std::max<long>(period, SlowCount)))
        , m_slow(SlowCount)
        , m_noise(NoiseCount) {
        for (std::size_t step = 0; step < m_slow.size(); ++step) {
            const double part = static_cast<double>(step) / SlowCount;
            for (int trace = 0; trace < TraceCount; ++trace) {
                const double turns = part * (1 + trace % 5) + static_cast<double>(trace) / 17;
                m_slow[step][static_cast<std::size_t>(trace)] =
                    static_cast<float>(50 + 42 * std::sin(2 * std::numbers::pi * turns));
            }
        }
        std::uint32_t state = 12345;
        for (auto& values : m_noise) {
            for (float& value : values) {
                state = state * 1664525U + 1013904223U;
                value = static_cast<float>(state >> 8) / static_cast<float>(1 << 22) - 2;
            }
        }
    }

    float At(long tick, int trace) const {
        const auto slow = static_cast<long>(static_cast<double>(tick) * m_stretch);
        const auto column = static_cast<std::size_t>(trace);
        return m_slow[static_cast<std::size_t>(slow & (SlowCount - 1))][column] +
               m_noise[static_cast<std::size_t>(tick & (NoiseCount - 1))][column];
    }

private:
    static constexpr long SlowCount = 1L << 16;
    static constexpr long NoiseCount = 1L << 12;

    double m_stretch;
    std::vector<std::array<float, TraceCount>> m_slow;
    std::vector<std::array<float, TraceCount>> m_noise;
};

/// Counts the paint events of a widget.
class Paints : public QObject {
public:
    explicit Paints(QObject* of)
        : m_of(of) {
        qApp->installEventFilter(this);
    }

    long Count = 0;

    bool eventFilter(QObject* object, QEvent* event) override {
        Count += object == m_of && event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    QObject* m_of;
};

double CpuMicroseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

/// A line of /proc/self/status that is given in kB.
long StatusKb(const QByteArray& name) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith(name + ':')) {
                return line.mid(name.size() + 1).simplified().split(' ').front().toLong();
            }
        }
    }
    return -1;
}

double Percentile(std::vector<double> values, double part) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const auto last = static_cast<double>(values.size() - 1);
    return values[static_cast<std::size_t>(part * last)];
}

/// The chart under test on simulated time.
class Bench {
public:
    explicit Bench(const Arguments& arguments)
        : m_all(arguments.Text("window", "60s") == "all")
        , m_anew(arguments.Text("variant", "live") == "anew")
        , m_history(arguments.Number("hist", 0))
        , m_ticks(arguments.Number("ticks", 4000))
        , m_budget(arguments.Number("budget", 30) * 1000)
        , m_repetition(arguments.Number("rep", 0))
        , m_waves(m_all ? m_history + m_ticks : 0) {
        const auto now = [this] { return m_now; };
        Chart.Clock({now, [now] { return std::chrono::system_clock::time_point(now()); }});
        Chart.YCeiling(100);
        Chart.YHigh(100);
        Chart.Caption(QStringLiteral("Monitor traces, live"));
        for (int trace = 0; trace < TraceCount; ++trace) {
            Chart.CaptionIndex(2 + trace);
            Chart.Caption(QStringLiteral("trace %1").arg(trace + 1, 2, 10, QLatin1Char('0')));
        }
        Chart.resize(900, 420);
        Chart.show();
        QCoreApplication::processEvents();
        for (; m_tick < 4; ++m_tick) {
            Feed();
        }
        Frame();
        Chart.ClearStrip();
        m_tick = 0;
        QCoreApplication::processEvents();
        m_baseKb = StatusKb("VmRSS");
    }

    void Prefill() {
        QElapsedTimer timer;
        timer.start();
        while (m_tick < m_history) {
            Feed();
        }
        if (m_all) {
            Chart.ShowWholeRun();
        }
        m_fillMs = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        m_filledKb = StatusKb("VmRSS");
    }

    void MeasureFeed() {
        QElapsedTimer timer;
        timer.start();
        const double cpuBefore = CpuMicroseconds();
        for (long i = 0; i < m_ticks; ++i) {
            Feed();
        }
        const double cpu = (CpuMicroseconds() - cpuBefore) / static_cast<double>(m_ticks);
        const double wall = static_cast<double>(timer.nsecsElapsed()) / 1e3;
        PrintHead("feed");
        std::printf("ticks=%ld cpu_us_per_tick=%.4f wall_us_per_tick=%.4f cpu_ns_per_sample=%.2f "
                    "rss_base_kb=%ld rss_kb=%ld\n",
                    m_ticks, cpu, wall / static_cast<double>(m_ticks), cpu * 1000 / TraceCount,
                    m_baseKb, StatusKb("VmRSS"));
    }

    void MeasureFrames() {
        RunFrames(6);
        m_frameTimes.clear();
        const Paints paints(&Chart);
        const long first = m_tick;
        QElapsedTimer timer;
        timer.start();
        const double cpuBefore = CpuMicroseconds();
        const long frames = RunFrames(m_ticks * FramesPerSecond / TicksPerSecond);
        const double cpu = CpuMicroseconds() - cpuBefore;
        const double wall = static_cast<double>(timer.nsecsElapsed()) / 1e3;
        const auto ticks = static_cast<double>(m_tick - first);
        PrintHead("run");
        std::printf("window=%s ticks=%ld frames=%ld cpu_us_per_tick=%.3f cpu_us_per_frame=%.2f "
                    "wall_us_per_tick=%.3f wall_us_per_frame=%.2f frame_p50_us=%.1f "
                    "frame_p99_us=%.1f frame_max_us=%.1f core_percent=%.3f paints=%ld "
                    "fill_ms=%.1f rss_base_kb=%ld rss_filled_kb=%ld rss_kb=%ld peak_kb=%ld\n",
                    m_all ? "all" : "60s", m_tick - first, frames, cpu / ticks,
                    cpu / static_cast<double>(frames), wall / ticks,
                    wall / static_cast<double>(frames), Percentile(m_frameTimes, 0.5),
                    Percentile(m_frameTimes, 0.99), Percentile(m_frameTimes, 1),
                    cpu / ticks * TicksPerSecond / 1e4, paints.Count, m_fillMs, m_baseKb,
                    m_filledKb, StatusKb("VmRSS"), StatusKb("VmHWM"));
    }

    tqx::StripChart Chart;

private:
    void PrintHead(const char* mode) const {
        std::printf("peer=console variant=%s mode=%s rep=%ld hist=%ld ", m_anew ? "anew" : "live",
                    mode, m_repetition, m_history);
    }

    void Feed() {
        m_now = TickTime * m_tick;
        for (int trace = 0; trace < TraceCount; ++trace) {
            Chart.AddStripPoint(static_cast<std::int16_t>(trace),
                                static_cast<double>(m_waves.At(m_tick, trace)));
        }
        ++m_tick;
    }

    QAction* Action(const char* text) {
        for (QAction* action : Chart.actions()) {
            if (action->text() == QLatin1String(text)) {
                return action;
            }
        }
        std::abort();
    }

    void Frame() {
        if (m_anew) {
            m_zoomed = !m_zoomed; // other columns, every one of them
            (m_zoomed ? m_zoomIn : m_zoomOut)->trigger();
        }
        Chart.DrawFrame();
        QCoreApplication::processEvents();
    }

    /// Runs `count` frames, or fewer when the budget is used up. The number of frames run.
    long RunFrames(long count) {
        QElapsedTimer total;
        total.start();
        const long first = m_tick;
        for (long frame = 0; frame < count; ++frame) {
            if (frame > 1 && total.elapsed() > m_budget) {
                return frame;
            }
            QElapsedTimer timer;
            timer.start();
            while (m_tick - first < (frame + 1) * TicksPerSecond / FramesPerSecond) {
                Feed();
            }
            Frame();
            m_frameTimes.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e3);
        }
        return count;
    }

    bool m_all;
    bool m_anew;
    bool m_zoomed = false;
    QAction* m_zoomIn = Action("Zoom time &in");
    QAction* m_zoomOut = Action("Zoom time &out");
    long m_history;
    long m_ticks;
    long m_budget; ///< in ms
    long m_repetition;
    Waves m_waves;
    long m_tick = 0;
    std::chrono::nanoseconds m_now{0};
    double m_fillMs = 0;
    long m_baseKb = 0;
    long m_filledKb = 0;
    std::vector<double> m_frameTimes;
};

} // namespace

int main(int argc, char** argv) {
    const Arguments arguments(argc, argv);
    QApplication application(argc, argv);
    Bench bench(arguments);
    bench.Prefill();
    if (arguments.Text("mode", "run") == "feed") {
        bench.MeasureFeed();
    } else {
        bench.MeasureFrames();
    }
    if (const std::string out = arguments.Text("out", ""); !out.empty()) {
        bench.Chart.Picture().save(QString::fromStdString(out));
    }
    return 0;
}
