#include "registers/bits.h"

#include <controls/look.h>
#include <controls/number_text.h>

#include <QGridLayout>
#include <QKeyEvent>

namespace tqx {
namespace {

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
