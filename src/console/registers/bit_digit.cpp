#include "registers/bit_digit.h"

#include <controls/accessible_control.h>
#include <controls/look.h>

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tqx {
namespace {

/// A bit to a screen reader: a box that is checked while the bit is 1.
class AccessibleBit : public QAccessibleWidget {
public:
    explicit AccessibleBit(BitDigit& digit)
        : QAccessibleWidget(&digit, QAccessible::CheckBox)
        , m_digit(digit) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_digit.IsOne();
        return state;
    }

    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }

    void doAction(const QString& action) override {
        if (action == toggleAction()) {
            m_digit.click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    BitDigit& m_digit;
};

} // namespace

BitDigit::BitDigit(int bit, QWidget* parent)
    : QAbstractButton(parent)
    , m_bit(bit)
    , m_legend(QString("Bit %1").arg(bit)) {
    DescribeToScreenReaders<BitDigit, AccessibleBit>();
    setObjectName(QString("bit%1").arg(bit));
    setToolTip("Click to change");
    setFont(look::NumbersFont(look::Size::Digits, look::Strong));
    look::MakeDisplay(*this);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    Announce();
}

void BitDigit::Caption(const QString& caption) {
    if (caption == m_caption) {
        return;
    }
    const bool wasOne = IsOne();
    m_caption = caption;
    update();
    Announce();
    if (wasOne != IsOne()) {
        QAccessible::State changed;
        changed.checked = true;
        TellScreenReaders(*this, changed);
    }
}

void BitDigit::Legend(const QString& legend) {
    m_legend = legend;
    Announce();
}

QSize BitDigit::sizeHint() const {
    return {14 * look::Grid, 11 * look::Grid};
}

void BitDigit::mouseMoveEvent(QMouseEvent*) {
    Q_EMIT MouseMoved();
}

void BitDigit::leaveEvent(QEvent*) {
    Q_EMIT MouseLeft();
}

void BitDigit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A key held down must not flip the bit again and again.
        if (!event->isAutoRepeat()) {
            click();
        }
        break;
    default:
        event->ignore();
    }
}

void BitDigit::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(QColor(IsOne() ? look::DisplayGreen : look::DisplayInk));
    painter.drawText(rect(), Qt::AlignCenter, m_caption);
    painter.setPen(hasFocus() ? QPen(QColor(look::Accent).lighter(140), 2)
                              : QPen(QColor(look::DisplayEdge), 1));
    painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

void BitDigit::Announce() {
    QString name = QString("Bit %1").arg(m_bit);
    if (QString(m_legend).remove(' ') != QString(name).remove(' ')) {
        name += ", " + m_legend;
    }
    setAccessibleName(m_caption.isEmpty() ? name : name + ": " + m_caption);
}

} // namespace tqx
