#pragma once

#include "strip_chart/history.h"
#include "strip_chart/view.h"

#include <QRect>
#include <QSize>

#include <functional>

namespace tqx {

/// Sizes of the texts that a chart's layout makes room for, in device-independent pixels.
struct StripTextSizes {
    int TitleHeight;
    int TimeCaptionWidth;
    int LabelHeight;
    int ValueLabelWidth;
    int LegendNameWidth;
};

/// Where the parts of a chart stand, in device-independent pixels.
struct StripLayout {
    QRect Title;
    QRect TimeCaption;
    QRect Buttons; ///< room at the right end of the title line
    QRect Paper;
    QRect ValueLabels;
    QRect TimeLabels; ///< reaches beyond the paper on both sides by half a label
    QRect OffScale;   ///< beside the paper, for the marks of traces that have left it
    QRect Legend;
    int LegendLineHeight;
};

inline constexpr int StripLegendLines = 17;
inline constexpr int StripSwatchWidth = 20;

StripLayout LayOutStrip(const QSize& size, const StripTextSizes& texts, int buttonsWidth);

/// The line of the legend that belongs to `variable`. Lines keep their places.
QRect StripLegendLine(const StripLayout& layout, int variable);

/// The variable whose line lies under `point`; -1 for none.
int StripLegendAt(const StripLayout& layout, const QPoint& point);

/// The step from one value label to the next, 1, 2 or 5 times a power of ten, for labels at least
/// `gap` apart on `height`.
double StripValueStep(double span, double height, double gap);

/// The multiples of `step` in `range`.
std::vector<double> StripValueTicks(const StripRange& range, double step);

/// How many decimals labels that are `step` apart need.
int StripDecimals(double step);

/// The row of a paper `height` rows high on which `value` lies; may lie beyond the paper.
double StripRow(double value, const StripRange& range, int height);

/// The value of a row.
double StripValue(double row, const StripRange& range, int height);

/// The step from one time label to the next, a round one on a clock's face, for labels at least
/// `gap` columns apart.
StripTime StripTimeStep(StripTime columnWidth, double gap);

/// Seconds east of Greenwich at a moment of the wall clock, in nanoseconds since 1970.
using StripZone = std::function<int(StripTime wall)>;

/// The moments from `from` up to but without `until` at which the clock on the wall of the place
/// shows a multiple of `step`.
std::vector<StripTime> StripTimeTicks(StripTime from, StripTime until, StripTime step,
                                      const StripWall& wall, const StripZone& zone);

} // namespace tqx
