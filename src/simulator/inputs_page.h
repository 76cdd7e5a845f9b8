#pragma once

#include "board_page.h"

#include <controls/combos.h>
#include <simulated/chip_input.h>

#include <QObject>
#include <QString>

#include <initializer_list>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;

namespace tqx {

namespace sim {
class SimulatedBoard;
}

/// How an input of the board is named and set.
struct InputRange {
    QString Caption;
    QString Unit;
    /// Any value in between can be held.
    double Min;
    double Max;
    /// A step of the slider; of a voltage one count of the chip.
    double Step;
    /// Digits behind the point that are shown.
    int Decimals;

    /// Slider positions run from 0 to this.
    int LastPosition() const;
    int PositionOf(double value) const;
    double ValueAt(int position) const;

    /// The value in digits that keep their places, with its unit.
    QString Text(double value) const;
};

InputRange RangeOf(sim::ChipInput input);

/// When the chip measures the input, for those that share their pin; empty for the others.
QString SharedPinNote(sim::ChipInput input);

/// One input of the board: its present value, and what holds it. While it runs, box and slider
/// follow it; a value set by hand is held at once, and the check box lets it run again.
class InputLine : public QObject {
    Q_OBJECT

public:
    /// Fills the row `row` of `grid`, whose widget becomes the line's parent.
    InputLine(sim::SimulatedBoard& board, sim::ChipInput input, QGridLayout& grid, int row);

    /// Shows the value of this moment.
    void Refresh();

private:
    void MakeControls();
    void NameControls();
    void ConnectControls();
    void LetRun();
    void HoldAt(double value);
    void ShowSetting(double value);

    sim::SimulatedBoard& m_board;
    sim::ChipInput m_input;
    InputRange m_range;
    QLabel* m_value = nullptr;
    QCheckBox* m_hold = nullptr;
    HandValue* m_box = nullptr;
    HandSlider* m_slider = nullptr;
};

/// Some of the board's inputs, one a line.
class InputsPage : public BoardPage {
public:
    /// The inputs of these kinds, in the chip's order.
    InputsPage(sim::SimulatedBoard& board, std::initializer_list<sim::InputKind> kinds);

    void Refresh() override;

private:
    std::vector<InputLine*> m_lines;
};

} // namespace tqx
