#pragma once

#include "strip_chart/trace.h"

namespace tqx {

inline constexpr int StripVariableCount = 18;

/// The histories of a chart's variables on a common time that begins with the run's first sample.
class StripHistory {
public:
    /// Adds a sample at `moment` of a clock that never goes back. A variable that is none is
    /// ignored.
    void Add(int variable, StripTime moment, double value) {
        if (variable < 0 || variable >= StripVariableCount) {
            return;
        }
        if (m_empty) {
            m_origin = moment;
            m_empty = false;
        }
        const StripTime time = moment - m_origin;
        m_newest = time > m_newest ? time : m_newest;
        m_traces[static_cast<std::size_t>(variable)].Add(m_newest, value);
    }

    void Clear() {
        for (StripTrace& trace : m_traces) {
            trace.Clear();
        }
        m_newest = 0;
        m_empty = true;
    }

    bool Empty() const { return m_empty; }

    /// Time of the last sample of all.
    StripTime Newest() const { return m_newest; }

    /// The clock's reading at time 0.
    StripTime Origin() const { return m_origin; }

    const StripTrace& Trace(int variable) const {
        return m_traces[static_cast<std::size_t>(variable)];
    }

private:
    std::array<StripTrace, StripVariableCount> m_traces;
    StripTime m_origin = 0;
    StripTime m_newest = 0;
    bool m_empty = true;
};

} // namespace tqx
