#include "strip_chart/columns.h"
#include "strip_chart/history.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace tqx::strip {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

/// A run with ticks that come irregularly, now and then a stop, a gap or a peak.
std::vector<Sample> RandomRun(std::size_t count, unsigned seed, Time pace) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> noise(-1, 1);
    std::uniform_int_distribution<int> dice(0, 9999);
    std::vector<Sample> samples;
    Time time = 0;
    double value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        time += pace + static_cast<Time>(noise(random) * 0.9 * static_cast<double>(pace));
        const int throwOf = dice(random);
        time += throwOf == 0 ? 30 * Second : 0;
        value += noise(random);
        const double peak = throwOf < 5 ? 500 * noise(random) : 0;
        samples.push_back({time, throwOf > 9990 ? NaN : value + peak});
    }
    return samples;
}

/// Lowest and highest sample from `from` up to but without `until`.
Extent BruteForce(const std::vector<Sample>& samples, Time from, Time until) {
    Extent extent;
    auto sample = std::ranges::lower_bound(samples, from, {}, &Sample::Time);
    for (; sample != samples.end() && sample->Time < until; ++sample) {
        if (!std::isnan(sample->Value)) {
            extent.Take(static_cast<float>(sample->Value));
        }
    }
    return extent;
}

TEST(StripTrace, EveryPeakOfTheRunIsInItsColumnAtEveryZoom) {
    const std::vector<Sample> samples = RandomRun(400'000, 1, 12'000'000);
    Trace trace;
    for (const Sample& sample : samples) {
        trace.Add(sample.Time, sample.Value);
    }
    const Time end = samples.back().Time;
    const Extent all = BruteForce(samples, 0, end + 1);
    for (const int count : {1, 7, 100, 740, 3000}) {
        const Columns columns{0, end / count + 1};
        std::vector<Extent> extents(static_cast<std::size_t>(count));
        FindExtents(trace, columns, extents);
        Extent drawn;
        for (int column = 0; column < count; ++column) {
            // A slot that stands across a border of columns belongs to the one of its beginning.
            const Time slack = columns.Width / 2;
            const Extent got = extents[static_cast<std::size_t>(column)];
            const Extent inner =
                BruteForce(samples, columns.Begin(column) + slack, columns.Begin(column + 1));
            if (!inner.Empty()) {
                ASSERT_LE(got.Low, inner.Low) << count << " columns, column " << column;
                ASSERT_GE(got.High, inner.High) << count << " columns, column " << column;
            }
            if (!got.Empty()) {
                drawn.Take(got.Low, got.High);
            }
        }
        EXPECT_EQ(drawn.Low, all.Low);
        EXPECT_EQ(drawn.High, all.High);
    }
}

TEST(StripTrace, ReadsTheSampleBeforeAMoment) {
    Trace trace;
    EXPECT_FALSE(trace.ReadAt(0).has_value());
    trace.Add(100, 1.5);
    trace.Add(200, NaN);
    trace.Add(300, 2.5);
    EXPECT_FALSE(trace.ReadAt(99).has_value());
    EXPECT_EQ(trace.ReadAt(100)->Value, 1.5);
    EXPECT_EQ(trace.ReadAt(199)->Value, 1.5);
    EXPECT_TRUE(std::isnan(trace.ReadAt(299)->Value));
    EXPECT_EQ(trace.ReadAt(1'000'000)->Value, 2.5);
    EXPECT_TRUE(trace.ReadAt(1'000'000)->Exact);
}

TEST(StripTrace, ReadsTheLastSampleOfASlotWhereSamplesAreNoLongerKept) {
    Trace trace;
    constexpr Time Step = Trace::NarrowestSlot / 4;
    for (std::size_t i = 0; i < 2 * Trace::RawCapacity; ++i) {
        trace.Add(static_cast<Time>(i) * Step, static_cast<double>(i));
    }
    const auto reading = trace.ReadAt(6 * Trace::NarrowestSlot + Step);
    ASSERT_TRUE(reading);
    EXPECT_FALSE(reading->Exact);
    EXPECT_EQ(reading->Value, 15) << "the last one of the slot that had ended";
    EXPECT_EQ(reading->Time, 4 * Trace::NarrowestSlot - 1);
}

TEST(StripHistory, SeventeenTracesOfADayStayBelow48MiB) {
    EXPECT_LT(Trace::MemoryBound * VariableCount, 44U << 20);
    // A day at 100 ticks a second ends in levels that reach back to its beginning.
    Trace trace;
    constexpr Time Tick = Second / 100;
    constexpr Time Day = Time{24} * 3600 * Second;
    for (Time i = 0; i < Day / Tick; ++i) {
        trace.Add(i * Tick, i == 12345 ? 1e6 : static_cast<double>(i % 100));
    }
    EXPECT_EQ(trace.CompleteFrom(Trace::LevelCount - 1), 0);
    std::vector<Extent> extents(740);
    FindExtents(trace, {0, Day / 740}, extents);
    EXPECT_EQ(extents[1].High, 1e6F);
    EXPECT_EQ(extents[2].High, 99.0F);
}

TEST(StripColumns, ALineRunsThroughTheColumnsBetweenItsSamplesButNotAcrossAGap) {
    Trace trace;
    trace.Add(5, 0);
    trace.Add(25, 20);
    trace.Add(30, NaN);
    trace.Add(45, 7);
    std::vector<Extent> extents(6);
    FindExtents(trace, {0, 10}, extents);
    const auto is = [](float low, float high) {
        return testing::AllOf(testing::Field(&Extent::Low, low),
                              testing::Field(&Extent::High, high));
    };
    EXPECT_THAT(extents[0], is(0, 5));
    EXPECT_THAT(extents[1], is(5, 15));
    EXPECT_THAT(extents[2], is(15, 20));
    EXPECT_TRUE(extents[3].Empty());
    EXPECT_THAT(extents[4], is(7, 7));
    EXPECT_TRUE(extents[5].Empty());
}

} // namespace
} // namespace tqx::strip
