#pragma once

#include "strip_chart/model.h"

namespace tqx {

/// What the cursors of a chart read: a line per trace that is shown, a column per cursor and, with
/// both, one of differences, second minus first.
struct StripReadout {
    struct Line {
        int Variable;
        QString Name;
        std::vector<QString> Values;
    };

    std::vector<int> Cursors;      ///< which ones stand, 0 and 1
    std::vector<QString> Headings; ///< moments of the cursors, then what lies between them
    std::vector<Line> Lines;

    /// The table as text, with tabs between its columns.
    QString Text() const;
};

/// A cursor reads the sample before it. It reads nothing, "-", in a gap and where nothing was
/// recorded; a value that is only known to the width of a slot of time is marked with "~".
StripReadout ReadOut(const StripModel& model);

} // namespace tqx
