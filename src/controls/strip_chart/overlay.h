#pragma once

#include "strip_chart/layers.h"

namespace tqx {

/// Draws what lies over a chart's paper: the cursors with what they read, and the notice of a view
/// that stands still.
void PaintStripOverlay(QPainter& painter, const StripModel& model, const StripLayers& layers);

/// Where the table of read-outs stands: where the user has put it, else at the side of the paper
/// that leaves the cursors free. Empty without a cursor.
QRect StripReadoutBox(const StripModel& model, const StripLayers& layers);

} // namespace tqx
