#include "strip_chart/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tqx::strip {
namespace {

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int LegendGap = 16;
constexpr int LongestLegendLine = 20;

Time RoundDown(Time value, Time step) {
    const Time rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

} // namespace

Layout LayOut(const QSize& size, const TextSizes& texts, int buttonsWidth) {
    Layout layout{};
    const int top = Margin + texts.TitleHeight + Gap;
    const int left = Margin + texts.ValueLabelWidth + Gap;
    const int name = SwatchWidth + Gap + texts.LegendNameWidth;
    // Where there is little room, names are cut short before the paper is.
    const int legendWidth = std::clamp(size.width() / 2, name, name + texts.ReadoutWidth);
    const int right = size.width() - Margin - legendWidth - LegendGap;
    const int bottom = size.height() - Margin - texts.LabelHeight - Gap / 2;
    layout.Paper = QRect(left, top, std::max(right - left, 1), std::max(bottom - top, 1));
    const QRect& paper = layout.Paper;
    layout.ValueLabels = QRect(Margin, top - texts.LabelHeight / 2, texts.ValueLabelWidth,
                               paper.height() + texts.LabelHeight);
    const int overhang = left;
    layout.TimeLabels = QRect(left - overhang, paper.bottom() + 1 + Gap / 2,
                              paper.width() + 2 * overhang, texts.LabelHeight);
    layout.OffScale = QRect(paper.right() + 2, top, LegendGap - Gap / 2, paper.height());
    const QRect column(paper.right() + 1 + LegendGap, top, legendWidth,
                       size.height() - Margin - top);
    layout.LegendLineHeight =
        std::clamp(column.height() / (LegendLines + texts.ReadoutHeadings), 8, LongestLegendLine);
    const int headings = texts.ReadoutHeadings * layout.LegendLineHeight;
    layout.ReadoutHeadings = QRect(column.topLeft(), QSize(legendWidth, headings));
    layout.Legend = column.adjusted(0, headings, 0, 0);
    layout.Unit = QRect(Margin, Margin, texts.ValueLabelWidth, texts.TitleHeight);
    layout.Buttons =
        QRect(size.width() - Margin - buttonsWidth, Margin, buttonsWidth, texts.TitleHeight);
    const int timeRight = std::min(paper.right() + 1, layout.Buttons.left() - Gap);
    layout.TimeCaption = QRect(timeRight - texts.TimeCaptionWidth, Margin, texts.TimeCaptionWidth,
                               texts.TitleHeight);
    layout.Title =
        QRect(left, Margin, std::max(layout.TimeCaption.left() - Gap - left, 1), texts.TitleHeight);
    return layout;
}

QRect LegendLine(const Layout& layout, int variable) {
    return {layout.Legend.left(), layout.Legend.top() + variable * layout.LegendLineHeight,
            layout.Legend.width(), layout.LegendLineHeight};
}

int LegendAt(const Layout& layout, const QPoint& point) {
    if (!layout.Legend.contains(point)) {
        return -1;
    }
    const int line = (point.y() - layout.Legend.top()) / layout.LegendLineHeight;
    return line < LegendLines ? line : -1;
}

double ValueStep(double span, double height, double gap) {
    const double finest = span * gap / std::max(height, 1.0);
    const double power = std::pow(10.0, std::floor(std::log10(finest)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        if (digit * power >= finest * (1 - 1e-9)) {
            return digit * power;
        }
    }
    return 10 * power;
}

std::vector<double> ValueTicks(const Range& range, double step) {
    std::vector<double> ticks;
    const double slack = step * 1e-6;
    const double first = std::ceil((range.Low - slack) / step);
    for (double n = first; n * step <= range.High + slack && ticks.size() < 100; ++n) {
        ticks.push_back(n * step);
    }
    return ticks;
}

int Decimals(double step) {
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 6);
}

double RowOf(double value, const Range& range, int height) {
    return (range.High - value) / range.Span() * (height - 1);
}

double ValueOf(double row, const Range& range, int height) {
    return range.High - row / std::max(height - 1, 1) * range.Span();
}

Time TimeStep(Time columnWidth, double gap) {
    constexpr Time Minute = 60 * Second;
    constexpr Time Hour = 60 * Minute;
    constexpr Time Day = 24 * Hour;
    static constexpr std::array Steps = {
        Second, 2 * Second, 5 * Second, 10 * Second, 15 * Second, 30 * Second,
        Minute, 2 * Minute, 5 * Minute, 10 * Minute, 15 * Minute, 30 * Minute,
        Hour,   2 * Hour,   3 * Hour,   6 * Hour,    12 * Hour,   Day};
    const auto finest = static_cast<Time>(static_cast<double>(columnWidth) * gap);
    const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), finest);
    return step != Steps.end() ? *step : (finest / Day + 1) * Day;
}

std::vector<Time> TimeTicks(Time from, Time until, Time step, const Wall& wall, const Zone& zone) {
    std::vector<Time> ticks;
    if (!wall.Known()) {
        return ticks;
    }
    const Time offset = wall.At(0);
    const Time shown = offset + zone(from + offset) * Second;
    for (Time at = RoundDown(from + shown + step - 1, step) - shown; at < until; at += step) {
        ticks.push_back(at);
    }
    return ticks;
}

} // namespace tqx::strip
