#pragma once

#include <device/gpio_lines.h>

#include <QAbstractButton>

#include <array>
#include <cstddef>

class QLabel;

namespace tqx {

class LinkNewComPort;

/// The levels of the seventeen GPIO lines as a row of digits, line 0 at the right end. A line whose
/// pin serves another function shows a placeholder instead. A click anywhere on it is a click on a
/// `GPIO` label.
class GPIODisplay : public QAbstractButton {
    Q_OBJECT

public:
    static constexpr int LineCount = gpio::LineCount;

    explicit GPIODisplay(LinkNewComPort& bus, QWidget* parent = nullptr);

    /// Reads the levels and writes the digits of all lines, hidden ones too.
    void ShowGPIOLevels();

    /// Shows the digit of a line, or the placeholder beneath it.
    void LineVisible(int line, bool visible);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Write(int firstLine, int lineCount, unsigned levels);
    void SayLevels();

    LinkNewComPort& m_bus;
    /// 0 to 16 the digits by line, 17 to 33 the placeholders.
    std::array<QLabel*, std::size_t{2} * LineCount> m_gpio{};
};

} // namespace tqx
