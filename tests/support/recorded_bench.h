#pragma once

#include "support/recording_link.h"

#include <device/bench.h>

#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace tqx::test {

/// A bench whose link is the recording one. The link is there for the test from the start, though
/// the bench takes it over at its first use only. A failed call that a handler tells of and that
/// the test does not ask for fails it.
class RecordedBench {
    std::unique_ptr<RecordingLink> m_unclaimed = std::make_unique<RecordingLink>();
    int m_failures = 0;

public:
    RecordedBench() {
        Bench.Failures = [this](const LinkError&) { ++m_failures; };
    }

    ~RecordedBench() { EXPECT_EQ(m_failures, 0) << "failed link calls that no step expected"; }

    /// How many failed calls handlers have told of since the last look.
    int TakeFailures() { return std::exchange(m_failures, 0); }

    RecordingLink& Link = *m_unclaimed;
    tqx::Bench Bench{[this](const LinkSetup&) { return std::move(m_unclaimed); }};
};

} // namespace tqx::test
