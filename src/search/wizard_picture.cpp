#include "wizard_picture.h"

#include <controls/look.h>

#include <QPainter>
#include <QPainterPath>

namespace tqx {
namespace {

/// The picture is drawn on a sheet of this size, which is laid over the middle of the widget.
constexpr QSize Sheet(176, 360);

constexpr QRectF Chip(34, 118, 76, 108);
constexpr int PinsOnASide = 7;
constexpr qreal PinPitch = 14;
constexpr QSizeF Pin(12, 5);

/// Where the two bus lines run, and the pins that they lead to.
constexpr qreal ClockX = 140;
constexpr qreal DataX = 156;
constexpr int ClockPin = 2;
constexpr int DataPin = 4;

qreal PinY(int pin) {
    return Chip.top() + (Chip.height() - (PinsOnASide - 1) * PinPitch) / 2 + pin * PinPitch;
}

void DrawBus(QPainter& painter) {
    for (const auto& [x, pin, colour] : {std::tuple(ClockX, ClockPin, look::Accent),
                                         std::tuple(DataX, DataPin, look::DisplayGreen)}) {
        painter.setPen(QPen(QColor(colour), 2, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x, -1000), QPointF(x, Sheet.height() + 1000));
        painter.drawLine(QPointF(Chip.right() + Pin.width(), PinY(pin)), QPointF(x, PinY(pin)));
        painter.setBrush(QColor(colour));
        painter.drawEllipse(QPointF(x, PinY(pin)), 3, 3);
    }
}

void DrawChip(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(look::DisplayQuiet));
    for (int pin = 0; pin < PinsOnASide; ++pin) {
        const qreal top = PinY(pin) - Pin.height() / 2;
        painter.drawRect(QRectF(QPointF(Chip.left() - Pin.width(), top), Pin));
        painter.drawRect(QRectF(QPointF(Chip.right(), top), Pin));
    }
    painter.setPen(QPen(QColor(look::DisplayQuiet), 1));
    painter.setBrush(QColor(look::DisplayEdge));
    painter.drawRoundedRect(Chip, 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(look::DisplayQuiet));
    painter.drawEllipse(Chip.topLeft() + QPointF(12, 12), 3.5, 3.5);
    painter.setPen(QColor(look::DisplayInk));
    painter.setFont(look::WordsFont(look::Size::Title, look::Strong));
    painter.drawText(Chip, Qt::AlignCenter, "TQX\n7716");
}

/// One transfer as a scope would show it: the clock's pulses over the data.
void DrawTransfer(QPainter& painter) {
    constexpr qreal Left = 22;
    constexpr qreal Cell = 7.7;
    constexpr qreal Height = 12;
    const auto trace = [&painter](qreal low, QRgb colour, const QString& levels) {
        QPainterPath path;
        for (int i = 0; i < levels.size(); ++i) {
            const qreal y = levels[i] == '1' ? low - Height : low;
            const QPointF at(Left + i * Cell, y);
            i == 0 ? path.moveTo(at) : path.lineTo(at);
            path.lineTo(at + QPointF(Cell, 0));
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(colour), 1.5));
        painter.drawPath(path);
    };
    trace(280, look::Accent, "1101010101011");
    trace(304, look::DisplayGreen, "1001100110001");
}

} // namespace

WizardPicture::WizardPicture(QWidget* parent)
    : QWidget(parent) {
    setObjectName("Image1");
    setAccessibleName("Picture of a chip on a bus");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize WizardPicture::sizeHint() const {
    return Sheet;
}

void WizardPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(look::Display));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - Sheet.width()) / 2.0, (height() - Sheet.height()) / 2.0);
    DrawBus(painter);
    DrawChip(painter);
    DrawTransfer(painter);
}

} // namespace tqx
