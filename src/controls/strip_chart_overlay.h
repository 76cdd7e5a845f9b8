#pragma once

#include "strip_chart_layers.h"

namespace tqx {

/// Draws what lies over a chart's paper: the cursors with what they read, and the notice of a view
/// that stands still.
void PaintStripOverlay(QPainter& painter, const StripModel& model, const StripLayers& layers);

/// Where the table of read-outs stands in `paper`: at the side that leaves the cursors free.
QRect StripReadoutBox(const QRect& paper, const QSize& size, const std::vector<double>& cursors);

} // namespace tqx
