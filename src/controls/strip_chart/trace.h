#pragma once

#include "strip_chart/ring.h"

#include <array>
#include <bit>
#include <cstdint>
#include <limits>
#include <optional>

namespace tqx {

/// Nanoseconds since the first sample of a run.
using StripTime = std::int64_t;

inline constexpr StripTime StripSecond = 1'000'000'000;

struct StripSample {
    StripTime Time;
    double Value; ///< not a number marks a gap
};

/// What the samples of one stretch of time came to.
struct StripSlot {
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

    void Take(const StripSlot& later) {
        Low = later.Low < Low ? later.Low : Low;
        High = later.High > High ? later.High : High;
        Last = later.Last;
    }
};

/// A sample as a cursor reads it.
struct StripReading {
    StripTime Time;
    double Value;
    bool Exact; ///< False when Time is only known to the width of a slot
};

/// The history of one variable: every sample of the recent past, and for the rest of the run the
/// lowest and the highest per slot of time, in levels of ever wider slots. Each level reaches
/// further back than the one before; the widest doubles its slots rather than forget, so a peak
/// stays for as long as the run lasts. Memory is bounded by MemoryBound.
class StripTrace {
public:
    static constexpr std::size_t RawCapacity = 65536;
    static constexpr std::size_t SlotCapacity = 12288;
    static constexpr int LevelCount = 7;
    static constexpr StripTime NarrowestSlot = StripTime{1} << 26; // 67 ms
    static constexpr std::size_t MemoryBound =
        RawCapacity * sizeof(StripSample) + LevelCount * SlotCapacity * sizeof(StripSlot);

    /// Adds a sample in constant time. A time before the newest sample's counts as that one's.
    void Add(StripTime time, double value) {
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

    const StripRing<StripSample>& Raw() const { return m_raw; }

    /// Width of the slots of `level`, 0 to LevelCount - 1.
    StripTime SlotWidth(int level) const { return StripTime{1} << At(level).Shift; }

    const StripRing<StripSlot>& Closed(int level) const { return At(level).Closed; }

    /// The slot of `level` that still grows; null when there is none. Together with the open ones
    /// of all narrower levels it holds what Closed(level) does not.
    const StripSlot* Open(int level) const { return At(level).IsOpen ? &At(level).Open : nullptr; }

    /// The time from which on the raw samples (level -1) or a level's slots are complete.
    StripTime CompleteFrom(int level) const;

    /// The last sample at or before `time`; nothing before the first one of the run.
    std::optional<StripReading> ReadAt(StripTime time) const;

private:
    struct Level {
        int Shift = 0; ///< slots are 2 to the power of Shift nanoseconds wide
        bool IsOpen = false;
        StripSlot Open{};
        StripRing<StripSlot> Closed{SlotCapacity};
    };

    static constexpr int FirstShift = std::countr_zero(static_cast<std::uint64_t>(NarrowestSlot));
    static constexpr int ShiftStep = 2;

    static std::array<Level, LevelCount> MakeLevels();

    const Level& At(int level) const { return m_levels[static_cast<std::size_t>(level)]; }

    void OpenSlot(std::size_t level, std::uint32_t index);
    void CloseSlot(std::size_t level);
    void DoubleWidestSlots();

    StripTime m_newest = std::numeric_limits<StripTime>::min();
    StripRing<StripSample> m_raw{RawCapacity};
    std::array<Level, LevelCount> m_levels = MakeLevels();
};

} // namespace tqx
