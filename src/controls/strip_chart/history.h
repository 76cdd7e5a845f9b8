#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>

namespace tqx::strip {

/// The last `capacity` entries of a row, oldest first. Its memory is asked for at the first entry
/// and touched only as entries come, so an unused one costs nothing.
template <typename Entry>
class Ring {
public:
    explicit Ring(std::size_t capacity)
        : m_capacity(capacity) {}

    std::size_t Size() const { return m_size; }

    bool Empty() const { return m_size == 0; }

    bool Full() const { return m_size == m_capacity; }

    /// Entry `index` of Size(), 0 the oldest.
    const Entry& operator[](std::size_t index) const { return m_entries[Place(index)]; }

    Entry& operator[](std::size_t index) { return m_entries[Place(index)]; }

    const Entry& Oldest() const { return m_entries[m_oldest]; }

    const Entry& Newest() const { return (*this)[m_size - 1]; }

    /// Adds an entry, in place of the oldest when the ring is full.
    void Push(const Entry& entry) {
        if (!m_entries) {
            m_entries = std::make_unique_for_overwrite<Entry[]>(m_capacity);
        }
        m_entries[m_next] = entry;
        m_next = m_next + 1 == m_capacity ? 0 : m_next + 1;
        if (m_size < m_capacity) {
            ++m_size;
        } else {
            m_oldest = m_next;
        }
    }

    void Clear() { m_size = m_oldest = m_next = 0; }

    /// The index of the first entry for which `reached` holds; it must go on holding for all that
    /// follow. Size() when there is none.
    template <typename Reached>
    std::size_t FirstWhere(Reached reached) const {
        std::size_t low = 0;
        std::size_t count = m_size;
        while (count > 0) {
            const std::size_t half = count / 2;
            if (reached((*this)[low + half])) {
                count = half;
            } else {
                low += half + 1;
                count -= half + 1;
            }
        }
        return low;
    }

private:
    std::size_t Place(std::size_t index) const {
        const std::size_t place = m_oldest + index;
        return place >= m_capacity ? place - m_capacity : place;
    }

    std::size_t m_capacity;
    std::size_t m_size = 0;
    std::size_t m_oldest = 0;
    std::size_t m_next = 0;
    std::unique_ptr<Entry[]> m_entries;
};

/// Nanoseconds since the first sample of a run.
using Time = std::int64_t;

inline constexpr Time Second = 1'000'000'000;

struct Sample {
    strip::Time Time;
    double Value; ///< not a number marks a gap
};

/// What the samples of one stretch of time came to.
struct Slot {
    std::uint32_t Index; ///< the stretch begins at Index times the width of the level's slots
    float Low = std::numeric_limits<float>::infinity();
    float High = -std::numeric_limits<float>::infinity();
    float Last = std::numeric_limits<float>::quiet_NaN();

    /// Whether it holds nothing but gaps.
    bool Gap() const { return Low > High; }

    void Take(float value) {
        Low = value < Low ? value : Low;
        High = value > High ? value : High;
        Last = value;
    }

    void Take(const Slot& later) {
        Low = later.Low < Low ? later.Low : Low;
        High = later.High > High ? later.High : High;
        Last = later.Last;
    }
};

/// A sample as a cursor reads it.
struct Reading {
    strip::Time Time;
    double Value;
    bool Exact; ///< False when Time is only known to the width of a slot
};

/// The history of one variable: every sample of the recent past, and for the rest of the run the
/// lowest and the highest per slot of time, in levels of ever wider slots. Each level reaches
/// further back than the one before, the widest by 39 days. Memory is bounded by MemoryBound.
class Trace {
public:
    static constexpr std::size_t RawCapacity = 65536;
    static constexpr std::size_t SlotCapacity = 12288;
    static constexpr int LevelCount = 7;
    static constexpr Time NarrowestSlot = Time{1} << 26; // 67 ms
    static constexpr std::size_t MemoryBound =
        RawCapacity * sizeof(Sample) + LevelCount * SlotCapacity * sizeof(Slot);

    /// Adds a sample in constant time. A time before the newest sample's counts as that one's.
    void Add(Time time, double value) {
        if (time < m_newest) {
            time = m_newest;
        }
        m_newest = time;
        m_raw.Push({time, value});
        Level& level = m_levels.front();
        const auto index = static_cast<std::uint32_t>(time >> level.Shift);
        if (index != level.Open.Index || !level.IsOpen) {
            OpenSlot(0, index);
        }
        level.Open.Take(static_cast<float>(value));
    }

    void Clear();

    bool Empty() const { return m_raw.Empty(); }

    const Ring<Sample>& Raw() const { return m_raw; }

    /// Width of the slots of `level`, 0 to LevelCount - 1.
    Time SlotWidth(int level) const { return Time{1} << At(level).Shift; }

    const Ring<Slot>& Closed(int level) const { return At(level).Closed; }

    /// The slot of `level` that still grows; null when there is none. Together with the open ones
    /// of all narrower levels it holds what Closed(level) does not.
    const Slot* Open(int level) const { return At(level).IsOpen ? &At(level).Open : nullptr; }

    /// The time from which on the raw samples (level -1) or a level's slots are complete.
    Time CompleteFrom(int level) const;

    /// The last sample at or before `time`; nothing before the first one of the run.
    std::optional<Reading> ReadAt(Time time) const;

private:
    struct Level {
        int Shift = 0; ///< slots are 2 to the power of Shift nanoseconds wide
        bool IsOpen = false;
        Slot Open{};
        Ring<Slot> Closed{SlotCapacity};
    };

    static constexpr int FirstShift = std::countr_zero(static_cast<std::uint64_t>(NarrowestSlot));
    static constexpr int ShiftStep = 2;

    static std::array<Level, LevelCount> MakeLevels();

    const Level& At(int level) const { return m_levels[static_cast<std::size_t>(level)]; }

    void OpenSlot(std::size_t level, std::uint32_t index);
    void CloseSlot(std::size_t level);

    Time m_newest = std::numeric_limits<Time>::min();
    Ring<Sample> m_raw{RawCapacity};
    std::array<Level, LevelCount> m_levels = MakeLevels();
};

inline constexpr int VariableCount = 18;

/// The histories of a chart's variables on a common time that begins with the run's first sample.
class History {
public:
    /// Adds a sample at `moment` of a clock that never goes back. A variable that is none is
    /// ignored.
    void Add(int variable, Time moment, double value) {
        if (variable < 0 || variable >= VariableCount) {
            return;
        }
        if (m_empty) {
            m_origin = moment;
            m_empty = false;
        }
        const Time time = moment - m_origin;
        m_newest = time > m_newest ? time : m_newest;
        m_traces[static_cast<std::size_t>(variable)].Add(m_newest, value);
    }

    void Clear() {
        for (strip::Trace& trace : m_traces) {
            trace.Clear();
        }
        m_newest = 0;
        m_empty = true;
    }

    bool Empty() const { return m_empty; }

    /// Time of the last sample of all.
    Time Newest() const { return m_newest; }

    /// The clock's reading at time 0.
    Time Origin() const { return m_origin; }

    const strip::Trace& Trace(int variable) const {
        return m_traces[static_cast<std::size_t>(variable)];
    }

private:
    std::array<strip::Trace, VariableCount> m_traces;
    Time m_origin = 0;
    Time m_newest = 0;
    bool m_empty = true;
};

/// What the clock on the wall says in a run. Intervals are measured by a clock that never jumps;
/// the wall clock only names moments. One that is set anew names all of the run anew.
class Wall {
public:
    /// Notes that at `time` the wall clock says `wall`, in nanoseconds since 1970. Whether moments
    /// have other names now: after the first note, and when the clock has jumped.
    bool Note(Time time, Time wall) {
        const Time offset = wall - time;
        if (m_offset && std::abs(offset - *m_offset) < SmallestJump) {
            return false;
        }
        m_offset = offset;
        return true;
    }

    void Clear() { m_offset.reset(); }

    bool Known() const { return m_offset.has_value(); }

    /// Nanoseconds since 1970 at `time`.
    Time At(Time time) const { return time + m_offset.value_or(0); }

private:
    static constexpr Time SmallestJump = Second / 4;

    std::optional<Time> m_offset; ///< what is added to a time of the run to have the wall clock's
};

} // namespace tqx::strip
