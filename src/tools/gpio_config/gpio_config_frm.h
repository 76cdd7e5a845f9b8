#pragma once

#include "tool_window.h"

#include <controls/combos.h>
#include <device/gpio_lines.h>

#include <array>
#include <cstdint>

class QGridLayout;
class QGroupBox;

namespace tqx {

struct Bench;

/// The GPIO control panel: the function, direction and polarity of the 17 lines as the registers
/// have them. Each change writes all fields.
///
/// Making it reads the registers, and raises LinkError where that fails.
class GPIOConfigFRM : public ToolWindow {
    Q_OBJECT

public:
    explicit GPIOConfigFRM(Bench& bench);

private:
    void MakeLayout();
    QGroupBox* MakeFanLines();
    QGroupBox* MakePlainLines();
    QGroupBox* MakeThermLine();
    void AddLine(QGridLayout& grid, int line, int column);
    void AddSelector(QGridLayout& grid, int index, int column);

    void FillCombos();
    void ReadEnables();
    void ReadDirections();
    void ReadAgain();
    void Changed();
    void WriteEnables();
    void WriteDirections();

    bool IsGPIO(int line) const;
    void EnableLine(int line);
    std::uint8_t ConfigOf(int r) const;
    void WriteTherm(std::uint8_t kept, std::uint8_t bits);

    Bench& m_bench;
    bool m_loading = false;

    std::array<HandCombo*, gpio::LineCount> m_direction{};
    std::array<HandCombo*, gpio::LineCount> m_polarity{};
    std::array<HandCombo*, gpio::FanLineCount + 1> m_function{};
};

} // namespace tqx
