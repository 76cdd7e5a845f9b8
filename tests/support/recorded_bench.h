#pragma once

#include "support/recording_link.h"

#include <device/bench.h>

#include <memory>
#include <utility>

namespace tqx::test {

/// A bench whose link is the recording one. The link is there for the test from the start, though
/// the bench takes it over at its first use only.
class RecordedBench {
    std::unique_ptr<RecordingLink> m_unclaimed = std::make_unique<RecordingLink>();

public:
    RecordingLink& Link = *m_unclaimed;
    tqx::Bench Bench{[this](const LinkSetup&) { return std::move(m_unclaimed); }};
};

} // namespace tqx::test
