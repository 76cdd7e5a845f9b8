#pragma once

#include "registers/bit_digit.h"

#include <QLabel>
#include <QWidget>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tqx {

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
