#pragma once

#include "strip_chart/trace.h"

#include <vector>

namespace tqx {

/// What the clock on the wall said in the course of a run. Intervals are measured by a clock that
/// never jumps; the wall clock only names moments. When it is set anew, what was recorded before
/// keeps its names.
class StripWall {
public:
    /// A stretch of the run in which the wall clock ran steadily.
    struct Stretch {
        StripTime From;   ///< time of the run
        StripTime Offset; ///< what is added to a time of the run to have the wall clock's
    };

    /// Notes that at `time` the wall clock said `wall`, in nanoseconds since 1970.
    void Note(StripTime time, StripTime wall);

    void Clear() { m_stretches.clear(); }

    /// Nanoseconds since 1970 at `time`.
    StripTime At(StripTime time) const;

    /// The stretches, by rising time; there are none before the first note.
    const std::vector<Stretch>& Stretches() const { return m_stretches; }

private:
    static constexpr StripTime SmallestJump = StripSecond / 4;
    static constexpr std::size_t MostStretches = 256;

    std::vector<Stretch> m_stretches;
};

} // namespace tqx
