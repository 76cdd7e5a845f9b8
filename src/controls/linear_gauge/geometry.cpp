#include "controls/linear_gauge_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tqx {
namespace {

constexpr double FaceMargin = 8.0;
constexpr double LabelGap = 4.0;
constexpr double FlagGap = 2.0;
constexpr double FlagPadding = 5.0;
constexpr double SmallestFlag = 16.0; // high enough to be grabbed
constexpr double CaptionPadding = 4.0;
constexpr double NarrowestTrack = 44.0;
constexpr double WidestTrack = 72.0;
constexpr double ShortestTrack = 120.0;
constexpr double BarInner = 0.26; // clear of the bands on both edges
constexpr double BarOuter = 0.80;

constexpr double LineReach = 5.0;      // a handle's line is met this far from it
constexpr double NarrowestBand = 12.0; // a band is met at least this wide
constexpr double LabelSpacing = 1.9;   // between round numbers, in heights of a label
constexpr double NearestMinor = 4.0;   // pixels between minor marks
constexpr int StepsOfScale = 256;

/// The round number, 1, 2 or 5 times a power of ten, nearest to `step` in proportion.
double NearestRound(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    const double lead = step / power;
    return power * (lead < std::sqrt(2.0)    ? 1.0
                    : lead < std::sqrt(10.0) ? 2.0
                    : lead < std::sqrt(50.0) ? 5.0
                                             : 10.0);
}

/// The smallest round number that is not below `step`.
double RoundAbove(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step)));
    for (const double lead : {1.0, 2.0, 5.0}) {
        if (lead * power >= step * (1.0 - 1e-9)) {
            return lead * power;
        }
    }
    return 10.0 * power;
}

/// Into how many parts minor marks divide a step between round numbers.
int MinorParts(double step) {
    const double lead = step / std::pow(10.0, std::floor(std::log10(step) + 1e-9));
    return lead > 1.5 && lead < 2.5 ? 4 : 5;
}

int DecimalsOfStep(double step) {
    return std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
}

double Rounded(double value, int decimals) {
    const double unit = std::pow(10.0, decimals);
    return std::nearbyint(value * unit) / unit;
}

/// An end of the scale as it was set, without the noise of binary fractions.
QString EndLabel(double value) {
    return QString::number(value, 'g', 6);
}

/// The round marks of `scale`, major ones labelled.
std::vector<GaugeTick> RoundTicks(const GaugeScale& scale, double length, double labelHeight) {
    const double perPixel = scale.Span() / length;
    const double major = RoundAbove(perPixel * labelHeight * LabelSpacing);
    int parts = MinorParts(major);
    if (major / parts < perPixel * NearestMinor) {
        parts = 1;
    }
    const double minor = major / parts;
    const int decimals = DecimalsOfStep(major);
    std::vector<GaugeTick> ticks;
    const double first = std::ceil(scale.Min / minor);
    const int count = static_cast<int>(std::floor(scale.Max / minor) - first) + 1;
    for (int i = 0; i < count; ++i) {
        const double value = (first + i) * minor;
        const bool isMajor = std::fmod(first + i, parts) == 0.0;
        ticks.push_back({value, isMajor ? GaugeTick::Kind::Major : GaugeTick::Kind::Minor,
                         isMajor ? GaugeNumber(value, decimals) : QString()});
    }
    return ticks;
}

} // namespace

double GaugeScale::Clamped(double value) const {
    return Span() > 0.0 ? std::clamp(value, Min, Max) : Min;
}

bool IsDrawn(const GaugePointers& pointers, int pointer) {
    const GaugePointer& it = pointers[static_cast<std::size_t>(pointer)];
    return it.Inner != it.Outer && (IsBand(pointer) || it.Width > 0.0);
}

bool IsDraggable(const GaugePointers& pointers, int pointer) {
    return IsDrawn(pointers, pointer) &&
           pointers[static_cast<std::size_t>(pointer)].MouseControl != 0;
}

int DecimalsOf(const GaugePointers& pointers, int pointer) {
    return pointers[static_cast<std::size_t>(IsBand(pointer) ? LowHandle : pointer)].Decimals;
}

PointerPlace Shifted(int pointer, const PointerPlace& place, double shift, const GaugeScale& scale,
                     int decimals) {
    const auto onScale = [&](double value) { return scale.Clamped(Rounded(value, decimals)); };
    PointerPlace shifted = place;
    if (IsBand(pointer)) {
        const double down = scale.Min - std::min(place.From, place.To);
        const double up = scale.Max - std::max(place.From, place.To);
        const double kept = down <= up ? std::clamp(shift, down, up) : shift;
        shifted.From = onScale(place.From + kept);
        shifted.To = onScale(place.To + kept);
    } else {
        shifted.Value = onScale(scale.Clamped(place.Value) + shift);
    }
    return shifted;
}

double KeyStep(const GaugeScale& scale, int decimals) {
    const double finest = std::pow(10.0, -decimals);
    return scale.Span() > 0.0 ? std::max(NearestRound(scale.Span() / StepsOfScale), finest)
                              : finest;
}

QString GaugeNumber(double value, int decimals) {
    const double rounded = Rounded(value, decimals);
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', decimals); // no "-0"
}

std::vector<GaugeTick> ScaleTicks(const GaugeScale& scale, double length, double labelHeight) {
    if (scale.Span() <= 0.0 || length <= labelHeight) {
        return {};
    }
    std::vector<GaugeTick> ticks = RoundTicks(scale, length, labelHeight);
    const double clear = labelHeight * scale.Span() / length;
    std::erase_if(ticks, [&](const GaugeTick& tick) {
        return tick.Value == scale.Min || tick.Value == scale.Max;
    });
    for (GaugeTick& tick : ticks) {
        if (tick.Value - scale.Min < clear || scale.Max - tick.Value < clear) {
            tick.Label.clear();
        }
    }
    ticks.insert(ticks.begin(), {scale.Min, GaugeTick::Kind::End, EndLabel(scale.Min)});
    ticks.push_back({scale.Max, GaugeTick::Kind::End, EndLabel(scale.Max)});
    return ticks;
}

GaugeGeometry::GaugeGeometry(QSize size, const GaugeScale& scale, const GaugeTextSizes& texts)
    : m_scale(scale)
    , m_flagWidth(texts.Flag + 2 * FlagPadding)
    , m_flagHeight(std::max(texts.FlagHeight, SmallestFlag)) {
    const double beside =
        2 * FaceMargin + texts.Label + LabelGap + TickLength + TickGap + FlagGap + m_flagWidth;
    const double width = std::clamp(size.width() - beside, NarrowestTrack, WidestTrack);
    const double spare = std::max(size.width() - beside - width, 0.0);
    const double left = spare / 2 + FaceMargin + texts.Label + LabelGap + TickLength + TickGap;
    const int captionHeight = static_cast<int>(std::ceil(texts.CaptionHeight + 2 * CaptionPadding));
    m_caption = QRect(1, size.height() - captionHeight - 1, size.width() - 2, captionHeight);
    const double top = FaceMargin + m_flagHeight;
    m_track = QRectF(std::round(left), top, std::round(width),
                     std::max(m_caption.top() - FaceMargin - m_flagHeight - top, 1.0));
}

QSize GaugeGeometry::SmallestSize(const GaugeTextSizes& texts) {
    const double flag = std::max(texts.FlagHeight, SmallestFlag);
    const double width = 2 * FaceMargin + texts.Label + LabelGap + TickLength + TickGap +
                         NarrowestTrack + FlagGap + texts.Flag + 2 * FlagPadding;
    const double height =
        2 * (FaceMargin + flag) + ShortestTrack + texts.CaptionHeight + 2 * CaptionPadding;
    return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))};
}

double GaugeGeometry::ToY(double value) const {
    if (m_scale.Span() <= 0.0 || std::isnan(value)) {
        return m_track.bottom();
    }
    const double fraction = (m_scale.Clamped(value) - m_scale.Min) / m_scale.Span();
    return m_track.bottom() - fraction * m_track.height();
}

double GaugeGeometry::ToValue(double y) const {
    return m_scale.Min + (m_track.bottom() - y) / m_track.height() * m_scale.Span();
}

QRectF GaugeGeometry::Bar(double origin, double value) const {
    const double left = m_track.left() + BarInner * m_track.width();
    const double right = m_track.left() + BarOuter * m_track.width();
    return QRectF(QPointF(left, ToY(origin)), QPointF(right, ToY(value))).normalized();
}

QRectF GaugeGeometry::BarColumn() const {
    const QRectF bar = Bar(m_scale.Min, m_scale.Max);
    return bar.adjusted(0, -m_flagHeight - FaceMargin, 0, m_flagHeight + FaceMargin);
}

QRectF GaugeGeometry::Band(const GaugePointer& band) const {
    const double left = m_track.left() + band.Inner * m_track.width();
    const double right = m_track.left() + band.Outer * m_track.width();
    return QRectF(QPointF(left, ToY(band.Place.From)), QPointF(right, ToY(band.Place.To)))
        .normalized();
}

QRectF GaugeGeometry::HandleLine(const GaugePointer& handle) const {
    const double y = ToY(handle.Place.Value);
    const double left = m_track.left() + handle.Inner * m_track.width();
    const double right = m_track.left() + handle.Outer * m_track.width();
    return {left, y, right + FlagGap - left, 0.0};
}

QRectF GaugeGeometry::Flag(int pointer, const GaugePointer& handle) const {
    const double height = std::clamp(handle.Width * m_track.height(), SmallestFlag, m_flagHeight);
    const double y = ToY(handle.Place.Value);
    return {m_track.right() + FlagGap, pointer == HighHandle ? y - height : y, m_flagWidth, height};
}

std::optional<int> GaugeGeometry::PointerAt(QPointF point, const GaugePointers& pointers,
                                            std::optional<int> preferred) const {
    std::optional<int> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (const int pointer : {preferred.value_or(LowHandle), LowHandle, HighHandle, 0, 1}) {
        if (!IsDraggable(pointers, pointer)) {
            continue;
        }
        const double reach = Reach(point, pointers, pointer);
        if (reach < least) {
            least = reach;
            nearest = pointer;
        }
    }
    return nearest;
}

/// How far `point` lies from what the mouse can take a pointer by; infinite when it misses it, and
/// farther for any band than for any handle.
double GaugeGeometry::Reach(QPointF point, const GaugePointers& pointers, int pointer) const {
    constexpr double Miss = std::numeric_limits<double>::infinity();
    const GaugePointer& it = pointers[static_cast<std::size_t>(pointer)];
    if (IsBand(pointer)) {
        const QRectF band = Band(it);
        const double wider = std::max((NarrowestBand - band.width()) / 2, 0.0);
        return band.adjusted(-wider, 0, wider, 0).contains(point) ? 2 * LineReach : Miss;
    }
    if (Flag(pointer, it).contains(point)) {
        return 0.0;
    }
    const QRectF line = HandleLine(it);
    const bool beside = point.x() >= line.left() && point.x() <= line.right() + m_flagWidth;
    const double away = std::abs(point.y() - line.top());
    return beside && away <= LineReach ? away : Miss;
}

} // namespace tqx
