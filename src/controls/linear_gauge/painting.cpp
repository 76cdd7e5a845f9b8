// How a gauge looks: its face, the bar, the pointers and the caption.

#include "controls/linear_gauge.h"
#include "controls/look.h"

#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tqx {
namespace {

constexpr QSize HintBeyondSmallest(24, 220);
constexpr double FocusPen = 2.0;
constexpr double LineCasing = 4.0; // dark around a handle's line, to part it from the bar
constexpr double ArrowSize = 5.0;
constexpr int GripDots = 3;

/// What a gauge shows besides its scale.
struct Reading {
    double BarOrigin;
    double BarValue;
    const GaugePointers& Pointers;
    QString Unit;
    std::optional<int> Held;    ///< in the user's hand: its value stands out, with the unit
    std::optional<int> Focused; ///< the one that the keyboard moves
};

bool IsHeld(const Reading& reading, int pointer) {
    // A band carries both handles along, so both show where its ends are.
    return reading.Held.has_value() && (reading.Held == pointer || IsBand(*reading.Held));
}

/// A filled arrow head with its middle at `centre`.
void DrawArrow(QPainter& painter, QPointF centre, bool up, QColor ink) {
    const double tip = up ? -ArrowSize : ArrowSize;
    const QPointF corners[] = {centre + QPointF(0, tip), centre + QPointF(ArrowSize, -tip * 0.6),
                               centre + QPointF(-ArrowSize, -tip * 0.6)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawPolygon(corners, std::size(corners));
}

void DrawBand(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading, int band) {
    const QRectF area = geometry.Band(reading.Pointers[static_cast<std::size_t>(band)]);
    const bool held = reading.Held == band;
    painter.fillRect(area, held ? QColor(look::Accent).lighter(150) : QColor(look::Accent));
    if (reading.Focused == band) {
        painter.setPen(QPen(QColor(look::DisplayInk), FocusPen));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(area.adjusted(-2, -2, 2, 2));
    }
}

void DrawHandleLine(QPainter& painter, const QRectF& line, QColor ink) {
    painter.setPen(QPen(QColor(look::Display), LineCasing, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(line.topLeft(), line.topRight());
    painter.setPen(QPen(ink, 2.0, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(line.topLeft(), line.topRight());
}

/// The outline of a flag, round at the corner that lies off its line and off the gauge.
QPainterPath FlagOutline(const QRectF& flag, int pointer) {
    constexpr double Round = 8.0;
    QPainterPath path;
    if (pointer == HighHandle) {
        path.moveTo(flag.bottomRight());
        path.lineTo(flag.bottomLeft());
        path.lineTo(flag.topLeft());
        path.arcTo(QRectF(flag.right() - Round, flag.top(), Round, Round), 90, -90);
    } else {
        path.moveTo(flag.topRight());
        path.lineTo(flag.topLeft());
        path.lineTo(flag.bottomLeft());
        path.arcTo(QRectF(flag.right() - Round, flag.bottom() - Round, Round, Round), -90, 90);
    }
    path.closeSubpath();
    return path;
}

void DrawGrip(QPainter& painter, const QRectF& flag, QColor ink) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int i = 0; i < GripDots; ++i) {
        painter.drawEllipse(QPointF(flag.right() - 4.0, flag.center().y() + 4.0 * (i - 1)), 1.0,
                            1.0);
    }
}

void DrawFlag(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading,
              int pointer) {
    const GaugePointer& handle = reading.Pointers[static_cast<std::size_t>(pointer)];
    const QRectF flag = geometry.Flag(pointer, handle);
    const bool held = IsHeld(reading, pointer);
    const bool focused = reading.Focused == pointer;
    const QColor ink = held ? look::Display : look::DisplayInk;
    painter.setPen(focused ? QPen(QColor(look::Accent).lighter(160), FocusPen)
                           : QPen(QColor(look::DisplayQuiet), 1.0));
    painter.setBrush(QColor(held ? look::DisplayInk : look::DisplayEdge));
    painter.drawPath(FlagOutline(flag.adjusted(0.5, 0.5, -0.5, -0.5), pointer));
    QString text = GaugeNumber(handle.Place.Value, handle.Decimals);
    if (held && !reading.Unit.isEmpty()) {
        text += ' ' + reading.Unit;
    }
    QRectF area = flag.adjusted(5, 0, -3, 0);
    const GaugeScale& scale = geometry.Scale();
    if (handle.Place.Value != scale.Clamped(handle.Place.Value)) {
        DrawArrow(painter, {area.left() + ArrowSize, area.center().y()},
                  handle.Place.Value > scale.Max, ink);
        area.setLeft(area.left() + 2 * ArrowSize + 3);
    }
    painter.setPen(ink);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, text);
    if (handle.MouseControl != 0 && !held) {
        DrawGrip(painter, flag, look::DisplayQuiet);
    }
}

QFont LabelFont() {
    return look::NumbersFont(look::Size::Fine);
}

QFont FlagFont() {
    return look::NumbersFont(look::Size::Note);
}

QFont CaptionFont() {
    return look::NumbersFont(look::Size::Digits, look::Strong);
}

/// The room that the texts of any gauge take, so that gauges of all scales look alike.
GaugeTextSizes TextSizes() {
    const QFontMetricsF label(LabelFont());
    const QFontMetricsF flag(FlagFont());
    return {label.horizontalAdvance(QStringLiteral("-15.928")),
            flag.horizontalAdvance(QStringLiteral("-15.928 V")), std::ceil(flag.height()) + 4,
            QFontMetricsF(CaptionFont()).height()};
}

/// The face: display, scale with its labels, track.
void DrawScale(QPainter& painter, QSize size, const GaugeGeometry& geometry) {
    painter.fillRect(QRect({}, size), QColor(look::Display));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(look::DisplayEdge), 1.0));
    painter.drawRect(QRectF(QPointF(0, 0), size).adjusted(0.5, 0.5, -0.5, -0.5));
    const double rule = geometry.Caption().top() - 0.5;
    painter.drawLine(QPointF(1, rule), QPointF(size.width() - 1, rule));
    painter.fillRect(geometry.Track(), QColor(look::DisplayEdge).darker(115));

    painter.setFont(LabelFont());
    const double right = geometry.TicksRight();
    const double height = painter.fontMetrics().height();
    for (const GaugeTick& tick : ScaleTicks(geometry.Scale(), geometry.Track().height(), height)) {
        const bool minor = tick.Is == GaugeTick::Kind::Minor;
        const double y = geometry.ToY(tick.Value);
        const double length = minor ? GaugeGeometry::TickLength / 2 : GaugeGeometry::TickLength;
        painter.setPen(QPen(QColor(look::DisplayQuiet), minor ? 1.0 : 1.5));
        painter.drawLine(QPointF(right - length, y), QPointF(right, y));
        if (tick.Value == 0.0) {
            painter.setPen(QPen(QColor(look::DisplayQuiet), 1.0));
            painter.drawLine(QPointF(geometry.Track().left(), y),
                             QPointF(geometry.Track().right(), y));
        }
        painter.setPen(
            QColor(tick.Is == GaugeTick::Kind::End ? look::DisplayQuiet : look::RowPlain));
        painter.drawText(QRectF(0, y - height / 2, right - GaugeGeometry::TickLength - 4, height),
                         Qt::AlignRight | Qt::AlignVCenter, tick.Label);
    }
}

void DrawBar(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading) {
    if (std::isnan(reading.BarValue)) {
        return;
    }
    const QRectF bar = geometry.Bar(reading.BarOrigin, reading.BarValue);
    painter.fillRect(bar, QColor(look::DisplayGreen));
    // The end at the reading, seen even where the bar has no length.
    const double y = geometry.ToY(reading.BarValue);
    painter.fillRect(QRectF(bar.left(), y - 1.0, bar.width(), 2.0), QColor(look::DisplayGreen));
    const GaugeScale& scale = geometry.Scale();
    const QPointF middle(bar.center().x(), y);
    if (reading.BarValue > scale.Max) {
        DrawArrow(painter, middle - QPointF(0, ArrowSize + 4), true, look::DisplayGreen);
    } else if (reading.BarValue < scale.Min) {
        DrawArrow(painter, middle + QPointF(0, ArrowSize + 4), false, look::DisplayGreen);
    }
}

/// Leaves out the flags that lie clear of `dirty`, so that a moving bar does not draw their text.
void DrawPointers(QPainter& painter, const GaugeGeometry& geometry, const Reading& reading,
                  const QRegion& dirty) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(FlagFont());
    for (const int band : {0, 1}) {
        if (IsDrawn(reading.Pointers, band)) {
            DrawBand(painter, geometry, reading, band);
        }
    }
    // The one in the hand or under the keyboard lies on top.
    const int top = reading.Held.value_or(reading.Focused.value_or(HighHandle));
    for (const int handle :
         {top == LowHandle ? HighHandle : LowHandle, top == LowHandle ? LowHandle : HighHandle}) {
        if (!IsDrawn(reading.Pointers, handle)) {
            continue;
        }
        const GaugePointer& it = reading.Pointers[static_cast<std::size_t>(handle)];
        DrawHandleLine(painter, geometry.HandleLine(it), look::DisplayInk);
        if (dirty.intersects(geometry.Flag(handle, it).toAlignedRect())) {
            DrawFlag(painter, geometry, reading, handle);
        }
    }
}

/// The caption at the left of a field in the middle that is `characters` wide.
void DrawCaption(QPainter& painter, const QRect& area, const QString& caption, int characters) {
    QFont font = CaptionFont();
    const int columns = std::max(characters, static_cast<int>(caption.size()));
    const double room = area.width() - 2.0 * look::Grid;
    double width = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0')) * columns;
    if (width > room) {
        font.setPointSizeF(font.pointSizeF() * room / width);
        width = room;
    }
    painter.setFont(font);
    painter.setPen(QColor(look::DisplayInk));
    painter.drawText(QRectF(area.center().x() - width / 2, area.top(), width + 1, area.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, caption);
}

/// How many characters the widest caption on a scale has: sign, number, blank and unit.
int CaptionCharacters(const GaugeScale& scale, int decimals, const QString& unit) {
    const auto width = [decimals](double end) {
        return GaugeNumber(end, decimals).size() + (end < 0.0 ? 0 : 1); // a blank for the plus
    };
    return static_cast<int>(std::max(width(scale.Min), width(scale.Max)) + 1 + unit.size());
}

} // namespace

QSize LinearGauge::sizeHint() const {
    return minimumSizeHint() + HintBeyondSmallest;
}

QSize LinearGauge::minimumSizeHint() const {
    return GaugeGeometry::SmallestSize(TextSizes());
}

void LinearGauge::LayOut() {
    m_geometry = GaugeGeometry(size(), m_scale, TextSizes());
    m_face = QPixmap();
    update();
}

void LinearGauge::resizeEvent(QResizeEvent*) {
    LayOut();
}

void LinearGauge::DrawFace(QPainter& painter) {
    const double ratio = devicePixelRatioF();
    if (m_face.isNull() || m_face.devicePixelRatio() != ratio) {
        m_face = QPixmap((QSizeF(size()) * ratio).toSize());
        m_face.setDevicePixelRatio(ratio);
        QPainter face(&m_face);
        DrawScale(face, size(), m_geometry);
    }
    painter.drawPixmap(0, 0, m_face);
}

void LinearGauge::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    DrawFace(painter);
    const QRect caption = m_geometry.Caption();
    if (event->region().intersects(caption)) {
        const int decimals = DecimalsOf(m_pointers, LowHandle);
        DrawCaption(painter, caption, m_caption, CaptionCharacters(m_scale, decimals, m_unit));
    }
    if (caption.contains(event->rect())) {
        return;
    }
    const Reading reading{static_cast<double>(m_barOrigin),
                          m_barValue,
                          m_pointers,
                          m_unit,
                          m_hold ? std::optional(m_hold->Pointer) : std::nullopt,
                          hasFocus() ? PickedPointer() : std::nullopt};
    DrawBar(painter, m_geometry, reading);
    DrawPointers(painter, m_geometry, reading, event->region());
}

} // namespace tqx
