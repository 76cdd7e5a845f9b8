#pragma once

#include "board_page.h"
#include "input_range.h"

#include <controls/combos.h>

#include <QObject>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace tqx {

class SimulatedBoard;

/// One input of the board: its present value, and what holds it. While it runs, box and slider
/// follow it; a value set by hand is held at once, and the check box lets it run again.
class InputLine : public QObject {
    Q_OBJECT

public:
    /// Fills the row `row` of `grid`, whose widget becomes the line's parent.
    InputLine(SimulatedBoard& board, ChipInput input, QGridLayout& grid, int row);

    /// Shows the value of this moment.
    void Refresh();

private:
    void MakeControls();
    void NameControls();
    void ConnectControls();
    void LetRun();
    void HoldAt(double value);
    void ShowSetting(double value);

    SimulatedBoard& m_board;
    ChipInput m_input;
    InputRange m_range;
    QLabel* m_value = nullptr;
    QCheckBox* m_hold = nullptr;
    HandValue* m_box = nullptr;
    HandSlider* m_slider = nullptr;
};

} // namespace tqx
