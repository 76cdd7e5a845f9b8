#pragma once

#include "strip_chart/history.h"
#include "strip_chart/view.h"

#include <QRect>
#include <QSize>

#include <functional>

namespace tqx::strip {

/// Sizes of the texts that a chart's layout makes room for, in device-independent pixels.
struct TextSizes {
    int TitleHeight;
    int TimeCaptionWidth;
    int LabelHeight;
    int ValueLabelWidth;
    int LegendNameWidth;
    int ReadoutWidth;    ///< of all that the cursors read in a legend line
    int ReadoutHeadings; ///< lines above the legend that name the cursors
};

/// Where the parts of a chart stand, in device-independent pixels.
struct Layout {
    QRect Title;
    QRect Unit; ///< above the value labels
    QRect TimeCaption;
    QRect Buttons; ///< room at the right end of the title line
    QRect Paper;
    QRect ValueLabels;
    QRect TimeLabels;      ///< reaches beyond the paper on both sides by half a label
    QRect OffScale;        ///< beside the paper, for the marks of traces that have left it
    QRect ReadoutHeadings; ///< above the legend; empty without a cursor
    QRect Legend;
    int LegendLineHeight;
};

inline constexpr int LegendLines = 17;
inline constexpr int SwatchWidth = 20;

Layout LayOut(const QSize& size, const TextSizes& texts, int buttonsWidth);

/// The line of the legend that belongs to `variable`. Lines keep their places.
QRect LegendLine(const Layout& layout, int variable);

/// The variable whose line lies under `point`; -1 for none.
int LegendAt(const Layout& layout, const QPoint& point);

/// The step from one value label to the next, 1, 2 or 5 times a power of ten, for labels at least
/// `gap` apart on `height`.
double ValueStep(double span, double height, double gap);

/// The multiples of `step` in `range`.
std::vector<double> ValueTicks(const Range& range, double step);

/// How many decimals labels that are `step` apart need.
int Decimals(double step);

/// The row of a paper `height` rows high on which `value` lies; may lie beyond the paper.
double RowOf(double value, const Range& range, int height);

/// The value of a row.
double ValueOf(double row, const Range& range, int height);

/// The step from one time label to the next, a second at least and a round one on a clock's face,
/// for labels at least `gap` columns apart.
Time TimeStep(Time columnWidth, double gap);

/// Seconds east of Greenwich at a moment of the wall clock, in nanoseconds since 1970.
using Zone = std::function<int(Time wall)>;

/// The moments from `from` up to but without `until` at which the clock on the wall of the place
/// shows a multiple of `step`.
std::vector<Time> TimeTicks(Time from, Time until, Time step, const Wall& wall, const Zone& zone);

} // namespace tqx::strip
