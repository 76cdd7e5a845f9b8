#include "registers/bits.h"

#include <controls/accessible_control.h>
#include <controls/look.h>
#include <controls/number_text.h>

#include <QAccessibleWidget>
#include <QGridLayout>
#include <QKeyEvent>
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

constexpr int BitsPerRow = 4;

/// The bit that `key` leads to from `bit`: bits count from right to left, seven at the top left.
int BitAfterKey(int bit, int key) {
    switch (key) {
    case Qt::Key_Left:
        return bit + 1;
    case Qt::Key_Right:
        return bit - 1;
    case Qt::Key_Up:
        return bit + BitsPerRow;
    case Qt::Key_Down:
        return bit - BitsPerRow;
    default:
        return -1;
    }
}

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

RegisterBits::RegisterBits(QWidget* parent)
    : QWidget(parent) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(look::Grid);
    grid->setVerticalSpacing(look::Grid / 2);
    for (int column = 0; column < BitsPerRow; ++column) {
        grid->setColumnStretch(column, 1);
    }
    for (int bit = 7; bit >= 0; --bit) {
        MakeBit(bit);
    }
}

void RegisterBits::MakeBit(int bit) {
    auto* digit = new BitDigit(bit, this);
    auto* legend = new QLabel(QString("Bit %1").arg(bit), this);
    legend->setObjectName(QString("bitname(%1)").arg(bit));
    legend->setFont(look::WordsFont(look::Size::Fine));
    legend->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    legend->setContentsMargins(0, 0, 0, look::Grid);

    const int row = 2 * ((7 - bit) / BitsPerRow);
    const int column = (7 - bit) % BitsPerRow;
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(digit, row, column);
    grid->addWidget(legend, row + 1, column);
    m_bits[static_cast<std::size_t>(bit)] = digit;
    m_legends[static_cast<std::size_t>(bit)] = legend;

    connect(digit, &BitDigit::clicked, this, [this, bit] { Q_EMIT Clicked(bit); });
    connect(digit, &BitDigit::MouseMoved, this, &RegisterBits::PointerEntered);
    connect(digit, &BitDigit::MouseLeft, this, &RegisterBits::PointerLeft);
}

void RegisterBits::Show(std::uint8_t byte) {
    for (int bit = 0; bit < 8; ++bit) {
        Bit(bit).Caption((byte >> bit & 1) != 0 ? "1" : "0");
    }
}

void RegisterBits::Clear() {
    for (BitDigit* digit : m_bits) {
        digit->Caption({});
    }
}

void RegisterBits::Legends(std::span<const std::string_view, 8> legends) {
    for (std::size_t bit = 0; bit < legends.size(); ++bit) {
        const QString legend = TextOf(legends[bit]);
        m_legends[bit]->setText(legend);
        m_bits[bit]->Legend(legend);
    }
}

void RegisterBits::keyPressEvent(QKeyEvent* event) {
    for (int bit = 0; bit < 8; ++bit) {
        const int next = BitAfterKey(bit, event->key());
        if (Bit(bit).hasFocus() && next >= 0 && next < 8) {
            Bit(next).setFocus(Qt::TabFocusReason);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

} // namespace tqx
