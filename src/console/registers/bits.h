#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QString>
#include <QWidget>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tqx {

/// One bit of the register on view, shown as "1" or "0" (empty before the first reading) on a dark
/// display. A left click, Space or Enter asks for it to be flipped; it never flips by itself.
class BitDigit : public QAbstractButton {
    Q_OBJECT

public:
    /// `bit`: its number, 0 to 7.
    explicit BitDigit(int bit, QWidget* parent = nullptr);

    QString Caption() const { return m_caption; }

    /// Takes the text and says it to a screen reader together with the bit's legend.
    void Caption(const QString& caption);
    void Legend(const QString& legend);

    bool IsOne() const { return m_caption == "1"; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void MouseMoved();
    void MouseLeft();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Announce();

    int m_bit;
    QString m_legend;
    QString m_caption;
};

/// The eight bits of the register on view in two rows of four, as the two hexadecimal digits have
/// them, each with its legend beneath. Arrow keys move between the bits.
class RegisterBits : public QWidget {
    Q_OBJECT

public:
    explicit RegisterBits(QWidget* parent = nullptr);

    BitDigit& Bit(int bit) const { return *m_bits[static_cast<std::size_t>(bit)]; }

    /// Shows all eight bits of `byte`.
    void Show(std::uint8_t byte);
    void Clear();
    /// Index 0 is the legend of bit 0.
    void Legends(std::span<const std::string_view, 8> legends);

Q_SIGNALS:
    void Clicked(int bit);
    void PointerEntered();
    void PointerLeft();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeBit(int bit);

    std::array<BitDigit*, 8> m_bits{};
    std::array<QLabel*, 8> m_legends{};
};

} // namespace tqx
