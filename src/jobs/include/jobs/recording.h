#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tqx {

/// A channel that is recorded.
struct RecordedChannel {
    std::string Caption;
    std::string Unit;
};

/// What was read of a channel: nothing where it was not read this time.
struct RecordedReading {
    std::optional<double> Value;
    bool Alarm = false;
};

/// A moment as a row has it.
struct RecordedMoment {
    std::chrono::system_clock::time_point Wall;
    /// On a clock that nobody sets.
    std::chrono::nanoseconds Steady;
};

/// The time of the wall as ISO 8601 with milliseconds and zone: 2026-03-01T12:00:00.000+01:00.
std::string TimeOf(std::chrono::system_clock::time_point wall);

/// Readings of the chip as lines of a file, which stands as whole lines whenever the program or the
/// machine ends, and lacks at most the last second.
///
/// A row has the time, the seconds since this recording began, and the readings. At an interval it
/// has mean, minimum and maximum of what was read in it; without one each reading is a row. Alarms
/// that come and go are lines of a second file beside it, "NAME-alarms.csv".
///
/// A file with the same heading is continued. Of the first failure on it raises nothing, writes
/// nothing any more and has its `Reason`.
class Recording {
public:
    /// `every`: the interval, or 0 for every reading. `place` should end in ".csv".
    Recording(const std::string& place, std::vector<RecordedChannel> channels,
              std::chrono::nanoseconds every);
    ~Recording();

    /// Takes in one reading of each channel. Past its end an interval becomes a row; intervals in
    /// which nothing was read leave none.
    void Take(const RecordedMoment& moment, const std::vector<RecordedReading>& readings);

    /// What Take does once a second by itself: sees to it that the rows outlive a power cut.
    void Flush();

    /// Writes the interval that has begun, and ends the recording.
    void Stop();

    bool Failed() const;
    std::string Reason() const;
    /// The recording's file.
    const std::string& Place() const;
    long Rows() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace tqx
