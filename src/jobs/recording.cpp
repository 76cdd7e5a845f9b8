#include "jobs/recording.h"

#include "appended_file.h"
#include "jobs/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <utility>

namespace tqx {
namespace {

constexpr std::chrono::seconds FlushTime{1};
constexpr std::string_view Ending = ".csv";
constexpr std::string_view TimeColumns = "Time,Seconds";

/// Mean, minimum and maximum of one channel within an interval.
struct Extent {
    double Sum = 0;
    double Least = 0;
    double Most = 0;
    long Count = 0;

    void Take(double value) {
        Least = Count == 0 ? value : std::min(Least, value);
        Most = Count == 0 ? value : std::max(Most, value);
        Sum += value;
        ++Count;
    }
};

std::string HeadingOf(const std::vector<RecordedChannel>& channels, bool everyReading) {
    std::string line(TimeColumns);
    for (const RecordedChannel& channel : channels) {
        const std::string unit = " (" + channel.Unit + ")";
        if (everyReading) {
            line += "," + channel.Caption + unit;
            continue;
        }
        for (const char* of : {" mean", " min", " max"}) {
            line += "," + channel.Caption + of + unit;
        }
    }
    return line + "\n";
}

std::string AlarmsBeside(std::string place) {
    if (place.ends_with(Ending)) {
        place.resize(place.size() - Ending.size());
    }
    return place + "-alarms.csv";
}

/// A file of rows under a heading.
class Table {
public:
    Table(const std::string& place, const std::string& heading)
        : m_file(place) {
        if (m_file.Failed()) {
            m_reason = m_file.Reason();
            return;
        }
        m_file.DropHalfLine();
        if (m_file.Size() == 0) {
            Write(heading);
        } else if (m_file.Beginning(heading.size()) != heading) {
            m_reason = "it holds something else; choose another name";
        }
    }

    void Write(const std::string& line) {
        if (m_reason.empty()) {
            m_file.Write(line);
            m_dirty = true;
        }
    }

    void Flush() {
        if (std::exchange(m_dirty, false)) {
            m_file.Flush();
        }
    }

    std::string Reason() const { return m_reason.empty() ? m_file.Reason() : m_reason; }

private:
    AppendedFile m_file;
    std::string m_reason;
    bool m_dirty = false;
};

} // namespace

std::string TimeOf(std::chrono::system_clock::time_point wall) {
    using namespace std::chrono;
    const auto whole = floor<milliseconds>(wall);
    const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(wall));
    std::tm local{};
    localtime_r(&seconds, &local);
    std::array<char, 32> day{};
    std::strftime(day.data(), day.size(), "%Y-%m-%dT%H:%M:%S", &local);
    const long minutes = std::abs(local.tm_gmtoff) / 60;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%s.%03d%c%02ld:%02ld", day.data(),
                  static_cast<int>((whole.time_since_epoch() % 1s).count()),
                  local.tm_gmtoff < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return text.data();
}

struct Recording::Parts {
    Parts(const std::string& place, std::vector<RecordedChannel> channels,
          std::chrono::nanoseconds every)
        : Place(place)
        , Channels(std::move(channels))
        , Every(every)
        , Rows(place, HeadingOf(Channels, every.count() == 0))
        , Alarms(AlarmsBeside(place), std::string(TimeColumns) + ",Channel,Alarm,Value\n")
        , Extents(Channels.size())
        , Alarmed(Channels.size()) {}

    std::string Place;
    std::vector<RecordedChannel> Channels;
    std::chrono::nanoseconds Every;
    Table Rows;
    Table Alarms;
    long RowCount = 0;
    std::optional<std::chrono::nanoseconds> Begin;
    std::chrono::nanoseconds Flushed{0};
    /// The interval at hand: its number from the beginning on, its last moment, what was read.
    std::int64_t Interval = 0;
    RecordedMoment Last{};
    std::vector<Extent> Extents;
    std::vector<bool> Alarmed;

    std::string Stamp(const RecordedMoment& moment) const {
        const std::chrono::duration<double> since = moment.Steady - *Begin;
        return TimeOf(moment.Wall) + "," + NumberOf(since.count());
    }

    void WriteInterval() {
        if (std::ranges::none_of(Extents, [](const Extent& each) { return each.Count > 0; })) {
            return;
        }
        std::string line = Stamp(Last);
        for (Extent& each : Extents) {
            if (each.Count == 0) {
                line += Every.count() == 0 ? "," : ",,,";
            } else if (Every.count() == 0) {
                line += "," + NumberOf(each.Sum);
            } else {
                line += "," + NumberOf(each.Sum / static_cast<double>(each.Count)) + "," +
                        NumberOf(each.Least) + "," + NumberOf(each.Most);
            }
            each = {};
        }
        Rows.Write(line + "\n");
        RowCount += Rows.Reason().empty() ? 1 : 0;
    }

    void NoteAlarm(std::size_t i, const RecordedMoment& moment, const RecordedReading& reading) {
        if (reading.Alarm != Alarmed[i]) {
            Alarmed[i] = reading.Alarm;
            Alarms.Write(Stamp(moment) + "," + Channels[i].Caption +
                         (reading.Alarm ? ",on," : ",off,") +
                         (reading.Value ? NumberOf(*reading.Value) : "") + "\n");
        }
    }
};

Recording::Recording(const std::string& place, std::vector<RecordedChannel> channels,
                     std::chrono::nanoseconds every)
    : m_parts(std::make_unique<Parts>(place, std::move(channels), every)) {}

Recording::~Recording() {
    Stop();
}

void Recording::Take(const RecordedMoment& moment, const std::vector<RecordedReading>& readings) {
    if (Failed()) {
        return;
    }
    Parts& m = *m_parts;
    if (!m.Begin) {
        m.Begin = m.Flushed = moment.Steady;
    }
    const auto since = moment.Steady - *m.Begin;
    const std::int64_t interval = m.Every.count() == 0 ? 0 : since / m.Every;
    if (interval != m.Interval) {
        m.WriteInterval();
        m.Interval = interval;
    }
    m.Last = moment;
    for (std::size_t i = 0; i < m.Channels.size(); ++i) {
        if (readings[i].Value) {
            m.Extents[i].Take(*readings[i].Value);
        }
        m.NoteAlarm(i, moment, readings[i]);
    }
    if (m.Every.count() == 0) {
        m.WriteInterval();
    }
    if (moment.Steady - m.Flushed >= FlushTime) {
        m.Flushed = moment.Steady;
        Flush();
    }
}

void Recording::Flush() {
    m_parts->Rows.Flush();
    m_parts->Alarms.Flush();
}

void Recording::Stop() {
    if (m_parts->Begin && !Failed()) {
        m_parts->WriteInterval();
    }
    Flush();
}

bool Recording::Failed() const {
    return !Reason().empty();
}

std::string Recording::Reason() const {
    const std::string rows = m_parts->Rows.Reason();
    return rows.empty() ? m_parts->Alarms.Reason() : rows;
}

const std::string& Recording::Place() const {
    return m_parts->Place;
}

long Recording::Rows() const {
    return m_parts->RowCount;
}

} // namespace tqx
