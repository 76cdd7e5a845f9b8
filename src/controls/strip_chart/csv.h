#pragma once

#include "strip_chart/model.h"

#include <QByteArray>

namespace tqx::strip {

/// What of a chart's history goes into a file.
struct Selection {
    Time From;
    Time Until; ///< not included
    std::vector<int> Variables;
};

/// The samples on view of the traces that are shown.
Selection SelectOnView(const Model& model);

/// All that is kept of every variable that has samples.
Selection SelectAll(const Model& model);

/// Comma-separated values with a line of headings: Time (of the place, ISO 8601 with
/// milliseconds), Seconds since the first sample of the run, Kind, and a column per variable
/// with its unit.
///
/// Samples of one tick stand in one row of the kind "sample", under the time of the first of them.
/// Where the run is so long past that samples are no longer kept one by one, each slot of time has
/// two rows, "min" and "max". A cell without a sample, and a gap, is empty.
QByteArray CsvText(const Model& model, const Selection& selection);

} // namespace tqx::strip
