#include "linear_gauge/painter.h"

#include "controls/look.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace tqx::gauge {
namespace {

constexpr double FocusPen = 2.0;
constexpr double LineCasing = 4.0; // dark around a handle's line, to part it from the bar
constexpr double ArrowSize = 5.0;
constexpr int GripDots = 3;

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

} // namespace

QFont LabelFont() {
    return look::NumbersFont(look::Size::Fine);
}

QFont FlagFont() {
    return look::NumbersFont(look::Size::Note);
}

QFont CaptionFont() {
    return look::NumbersFont(look::Size::Digits, look::Strong);
}

GaugeTextSizes TextSizes() {
    const QFontMetricsF label(LabelFont());
    const QFontMetricsF flag(FlagFont());
    return {label.horizontalAdvance(QStringLiteral("-15.928")),
            flag.horizontalAdvance(QStringLiteral("-15.928 V")), std::ceil(flag.height()) + 4,
            QFontMetricsF(CaptionFont()).height()};
}

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

int CaptionCharacters(const GaugeScale& scale, int decimals, const QString& unit) {
    const auto width = [decimals](double end) {
        return GaugeNumber(end, decimals).size() + (end < 0.0 ? 0 : 1); // a blank for the plus
    };
    return static_cast<int>(std::max(width(scale.Min), width(scale.Max)) + 1 + unit.size());
}

} // namespace tqx::gauge
