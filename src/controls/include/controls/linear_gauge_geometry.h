#pragma once

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// Where things stand on a linear gauge: scale, ticks, bar, pointers and what the mouse meets.
/// Everything is in device-independent pixels of the gauge and needs no window.
namespace tqx {

/// The two ends of a scale. With `Max` not above `Min` there is nothing on it.
struct GaugeScale {
    double Min = 0.0;
    double Max = 100.0;

    double Span() const { return Max > Min ? Max - Min : 0.0; }

    double Clamped(double value) const;
    bool operator==(const GaugeScale&) const = default;
};

/// Where one pointer stands: a handle at `Value`, a band from `From` to `To`.
struct PointerPlace {
    double Value = 0.0;
    double From = 0.0;
    double To = 0.0;

    bool operator==(const PointerPlace&) const = default;
};

/// One of the four pointers of a gauge, as its owner has set it up. It starts collapsed.
struct GaugePointer {
    PointerPlace Place;
    double Inner = 1.0; ///< fractions across the gauge, 0 beside the scale
    double Outer = 1.0;
    double Width = 0.0; ///< of a handle along the scale, as a fraction of its length
    int MouseControl = 0;
    int Decimals = 0;
    bool FlagA = false;
    bool FlagB = false;
};

/// Pointers 0 and 1 are bands along the edges, 2 is the low and 3 the high handle.
using GaugePointers = std::array<GaugePointer, 4>;
inline constexpr int LowHandle = 2;
inline constexpr int HighHandle = 3;

constexpr bool IsBand(int pointer) {
    return pointer < LowHandle;
}

/// Whether the pointer is there at all: a collapsed one is neither drawn nor met by the mouse.
bool IsDrawn(const GaugePointers& pointers, int pointer);

/// Whether the user can take hold of the pointer.
bool IsDraggable(const GaugePointers& pointers, int pointer);

/// The decimals that a pointer is rounded to in the user's hand: its own, a band those of the low
/// handle, which stands at its end.
int DecimalsOf(const GaugePointers& pointers, int pointer);

/// `place` of a pointer moved by `shift`, rounded to `decimals` and kept on the scale. A band keeps
/// its length while there is room for it.
PointerPlace Shifted(int pointer, const PointerPlace& place, double shift, const GaugeScale& scale,
                     int decimals);

/// What one press of an arrow key moves a pointer by: a round number near 1/256 of the scale, and
/// nothing finer than `decimals` show.
double KeyStep(const GaugeScale& scale, int decimals);

/// `value` with `decimals`, for reading.
QString GaugeNumber(double value, int decimals);

/// A mark of the scale; a minor one and one whose label has no room carry none.
struct GaugeTick {
    enum class Kind { Minor, Major, End };

    double Value;
    Kind Is;
    QString Label;
};

/// The marks of `scale` drawn `length` pixels long with labels `labelHeight` high, from low to
/// high: round numbers, and the ends as they are. Labels never touch.
std::vector<GaugeTick> ScaleTicks(const GaugeScale& scale, double length, double labelHeight);

/// The sizes of the texts on a gauge.
struct GaugeTextSizes {
    double Label = 0.0; ///< width of the widest scale label
    double Flag = 0.0;  ///< width of the widest value on a handle's flag
    double FlagHeight = 0.0;
    double CaptionHeight = 0.0;
};

/// A gauge of a given size: where its parts stand and where a value stands on its scale.
class GaugeGeometry {
public:
    GaugeGeometry() = default;
    GaugeGeometry(QSize size, const GaugeScale& scale, const GaugeTextSizes& texts);

    /// The smallest size at which nothing is clipped or crowded.
    static QSize SmallestSize(const GaugeTextSizes& texts);

    const GaugeScale& Scale() const { return m_scale; }

    QRectF Track() const { return m_track; } ///< what the scale stands beside, full scale high

    QRect Caption() const { return m_caption; }

    double TicksRight() const { return m_track.left() - TickGap; }

    /// The height of a value, one outside the scale at its nearer end. `ToValue` is the reverse and
    /// goes on beyond the ends.
    double ToY(double value) const;
    double ToValue(double y) const;

    /// The bar from `origin` to `value`.
    QRectF Bar(double origin, double value) const;

    /// The column that the bar moves in, from edge to edge of the face.
    QRectF BarColumn() const;

    /// A band between its two ends.
    QRectF Band(const GaugePointer& band) const;

    /// The line of a handle across the gauge, and its flag with the value: above the line for the
    /// high handle, beneath it for the low one, so that they stand clear of each other.
    QRectF HandleLine(const GaugePointer& handle) const;
    QRectF Flag(int pointer, const GaugePointer& handle) const;

    /// The draggable pointer at `point`, handles before bands, and of two that lie there alike
    /// `preferred`.
    std::optional<int> PointerAt(QPointF point, const GaugePointers& pointers,
                                 std::optional<int> preferred) const;

    static constexpr double TickGap = 3.0;
    static constexpr double TickLength = 8.0;

private:
    double Reach(QPointF point, const GaugePointers& pointers, int pointer) const;

    GaugeScale m_scale;
    QRectF m_track;
    QRect m_caption;
    double m_flagWidth = 0.0;
    double m_flagHeight = 0.0;
};

} // namespace tqx
