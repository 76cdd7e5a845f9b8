#include "control_centre/gpio_display.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <device/register_addresses.h>
#include <link/link_new_com_port.h>

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

#include <cstdint>

namespace tqx {
namespace {

constexpr int LinesPerByte = 8;
constexpr int LastLine = GPIODisplay::LineCount - 1;

/// The placeholder that lies under the digit of each line.
constexpr std::array<int, GPIODisplay::LineCount> PlaceholderOfLine{
    32, 31, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 30, 33};

/// Line 0 stands at the right end, and a gap stands between the bytes.
constexpr int ColumnOfLine(int line) {
    return LastLine - line + (LastLine / LinesPerByte - line / LinesPerByte);
}

QLabel* NewLabel(QWidget* parent, const QString& text, const QFont& font, QRgb ink) {
    auto* const label = new QLabel(text, parent);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setBackgroundRole(QPalette::Window); // a button's child would take the button's roles
    label->setForegroundRole(QPalette::WindowText);
    look::MakeDisplay(*label); // opaque: a digit covers its placeholder
    look::SetInk(*label, ink);
    return label;
}

} // namespace

GPIODisplay::GPIODisplay(LinkNewComPort& bus, QWidget* parent)
    : QAbstractButton(parent)
    , m_bus(bus) {
    setObjectName(QStringLiteral("GPIODisplay"));
    setAccessibleName("GPIO levels");
    setToolTip("Click to change");
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    look::MakeDisplay(*this);

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(2 * look::Grid, look::Grid, 2 * look::Grid, look::Grid);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(0);
    const QFont digitFont = look::NumbersFont(look::Size::Section, look::Strong);
    const QFont numberFont = look::NumbersFont(look::Size::Fine);
    for (int line = LastLine; line >= 0; --line) {
        const int column = ColumnOfLine(line);
        grid->addWidget(NewLabel(this, QString::number(line), numberFont, look::DisplayQuiet), 0,
                        column);
        const int placeholder = PlaceholderOfLine.at(line);
        m_gpio.at(placeholder) =
            NewLabel(this, QStringLiteral("--"), digitFont, look::DisplayQuiet);
        m_gpio.at(line) = NewLabel(this, QStringLiteral("0"), digitFont, look::DisplayInk);
        for (const int index : {placeholder, line}) {
            m_gpio.at(index)->setObjectName(QStringLiteral("GPIO(%1)").arg(index));
            m_gpio.at(index)->setToolTip("Click to change");
            grid->addWidget(m_gpio.at(index), 1, column);
        }
        grid->setColumnMinimumWidth(column, 5 * look::Grid);
        if (line % LinesPerByte == 0 && line > 0) {
            grid->setColumnMinimumWidth(column + 1, 2 * look::Grid);
        }
    }
}

void GPIODisplay::ShowGPIOLevels() {
    Write(0, LinesPerByte, ReadAt(m_bus, reg::Status5));
    Write(LinesPerByte, LinesPerByte, ReadAt(m_bus, reg::Status6));
    Write(LastLine, 1, ReadAt(m_bus, reg::Status4) >> 7U);
    SayLevels();
}

void GPIODisplay::Write(int firstLine, int lineCount, unsigned levels) {
    for (int bit = 0; bit < lineCount; ++bit) {
        const bool high = (levels >> bit & 1U) != 0;
        kit::ShowReadout(*m_gpio.at(firstLine + bit),
                         QStringLiteral("GPIO line %1").arg(firstLine + bit),
                         high ? QStringLiteral("1") : QStringLiteral("0"));
    }
}

void GPIODisplay::LineVisible(int line, bool visible) {
    m_gpio.at(line)->setVisible(visible);
    SayLevels();
}

/// Says to a screen reader, which reads the control as one, which lines are high.
void GPIODisplay::SayLevels() {
    QStringList high;
    for (int line = 0; line < LineCount; ++line) {
        if (!m_gpio.at(line)->isHidden() && m_gpio.at(line)->text() == QStringLiteral("1")) {
            high << QString::number(line);
        }
    }
    const QString levels = high.isEmpty() ? QStringLiteral("No line is high")
                                          : QStringLiteral("High: %1").arg(high.join(", "));
    if (levels != accessibleDescription()) {
        setAccessibleDescription(levels);
    }
}

void GPIODisplay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(QColor(look::Accent), 2) : QPen(QColor(look::DisplayEdge), 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
}

void GPIODisplay::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace tqx
