#include "strip_chart/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tqx {
namespace {

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int LegendGap = 16;
constexpr int LongestLegendLine = 20;

StripTime RoundDown(StripTime value, StripTime step) {
    const StripTime rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

} // namespace

StripLayout LayOutStrip(const QSize& size, const StripTextSizes& texts, int buttonsWidth) {
    StripLayout layout{};
    const int top = Margin + texts.TitleHeight + Gap;
    const int left = Margin + texts.ValueLabelWidth + Gap;
    const int legendWidth = StripSwatchWidth + Gap + texts.LegendNameWidth;
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
    layout.Legend =
        QRect(paper.right() + 1 + LegendGap, top, legendWidth, size.height() - Margin - top);
    layout.LegendLineHeight =
        std::clamp(layout.Legend.height() / StripLegendLines, 8, LongestLegendLine);
    layout.Buttons =
        QRect(size.width() - Margin - buttonsWidth, Margin, buttonsWidth, texts.TitleHeight);
    const int timeRight = std::min(paper.right() + 1, layout.Buttons.left() - Gap);
    layout.TimeCaption = QRect(timeRight - texts.TimeCaptionWidth, Margin, texts.TimeCaptionWidth,
                               texts.TitleHeight);
    layout.Title =
        QRect(left, Margin, std::max(layout.TimeCaption.left() - Gap - left, 1), texts.TitleHeight);
    return layout;
}

QRect StripLegendLine(const StripLayout& layout, int variable) {
    return {layout.Legend.left(), layout.Legend.top() + variable * layout.LegendLineHeight,
            layout.Legend.width(), layout.LegendLineHeight};
}

int StripLegendAt(const StripLayout& layout, const QPoint& point) {
    if (!layout.Legend.contains(point)) {
        return -1;
    }
    const int line = (point.y() - layout.Legend.top()) / layout.LegendLineHeight;
    return line < StripLegendLines ? line : -1;
}

double StripValueStep(double span, double height, double gap) {
    const double finest = span * gap / std::max(height, 1.0);
    const double power = std::pow(10.0, std::floor(std::log10(finest)));
    for (const double digit : {1.0, 2.0, 5.0}) {
        if (digit * power >= finest * (1 - 1e-9)) {
            return digit * power;
        }
    }
    return 10 * power;
}

std::vector<double> StripValueTicks(const StripRange& range, double step) {
    std::vector<double> ticks;
    const double slack = step * 1e-6;
    const double first = std::ceil((range.Low - slack) / step);
    for (double n = first; n * step <= range.High + slack && ticks.size() < 100; ++n) {
        ticks.push_back(n * step);
    }
    return ticks;
}

int StripDecimals(double step) {
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 6);
}

double StripRow(double value, const StripRange& range, int height) {
    return (range.High - value) / range.Span() * (height - 1);
}

double StripValue(double row, const StripRange& range, int height) {
    return range.High - row / std::max(height - 1, 1) * range.Span();
}

StripTime StripTimeStep(StripTime columnWidth, double gap) {
    constexpr StripTime Minute = 60 * StripSecond;
    constexpr StripTime Hour = 60 * Minute;
    constexpr StripTime Day = 24 * Hour;
    static constexpr std::array Steps = {StripSecond / 100,
                                         StripSecond / 50,
                                         StripSecond / 20,
                                         StripSecond / 10,
                                         StripSecond / 5,
                                         StripSecond / 2,
                                         StripSecond,
                                         2 * StripSecond,
                                         5 * StripSecond,
                                         10 * StripSecond,
                                         15 * StripSecond,
                                         30 * StripSecond,
                                         Minute,
                                         2 * Minute,
                                         5 * Minute,
                                         10 * Minute,
                                         15 * Minute,
                                         30 * Minute,
                                         Hour,
                                         2 * Hour,
                                         3 * Hour,
                                         6 * Hour,
                                         12 * Hour,
                                         Day};
    const auto finest = static_cast<StripTime>(static_cast<double>(columnWidth) * gap);
    const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), finest);
    return step != Steps.end() ? *step : (finest / Day + 1) * Day;
}

std::vector<StripTime> StripTimeTicks(StripTime from, StripTime until, StripTime step,
                                      const StripWall& wall, const StripZone& zone) {
    std::vector<StripTime> ticks;
    const auto& stretches = wall.Stretches();
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const StripTime begin = i == 0 ? from : std::max(from, stretches[i].From);
        const StripTime end =
            i + 1 == stretches.size() ? until : std::min(until, stretches[i + 1].From);
        const StripTime offset = stretches[i].Offset;
        const StripTime shown = offset + zone(begin + offset) * StripSecond;
        for (StripTime at = RoundDown(begin + shown + step - 1, step) - shown; at < end;
             at += step) {
            ticks.push_back(at);
        }
    }
    return ticks;
}

} // namespace tqx
