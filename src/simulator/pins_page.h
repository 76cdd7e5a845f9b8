#pragma once

#include "board_page.h"

#include <controls/combos.h>
#include <simulated/chip.h>

#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace tqx {

namespace sim {
class SimulatedBoard;
}

/// The board's pins and jumpers: GPIO lines, chassis switch, write protection, address pins and
/// board mode.
class PinsPage : public BoardPage {
    Q_OBJECT

public:
    explicit PinsPage(sim::SimulatedBoard& board);

    void Refresh() override;

private:
    QWidget* MakeGPIO();
    void MakeLine(QGridLayout& grid, int line);
    QWidget* MakeJumpers();
    QCheckBox* MakeChassisSwitch();
    QCheckBox* MakeWriteProtect();
    HandCombo* MakeAddressPins();
    HandCombo* MakeBoardMode();

    sim::SimulatedBoard& m_board;
    std::array<QLabel*, sim::Chip::GPIOLineCount> m_levels{};
    std::array<QLabel*, sim::Chip::GPIOLineCount> m_uses{};
};

} // namespace tqx
