#pragma once

#include "board_page.h"

#include <controls/combos.h>
#include <simulated/faults.h>

#include <array>

class QGridLayout;

namespace tqx {

namespace sim {
class SimulatedBoard;
}

/// The faults that the board can be asked for, each off, always on, or on at every nth occasion.
class FaultsPage : public BoardPage {
    Q_OBJECT

public:
    explicit FaultsPage(sim::SimulatedBoard& board);

    /// How many faults are switched on.
    int CountOn() const;

Q_SIGNALS:
    void Changed();

private:
    struct Line {
        HandCombo* When = nullptr;
        HandNumber* Nth = nullptr;
    };

    void MakeLine(QGridLayout& grid, int index);
    void ShowFault(int index);
    void SetFault(int index);
    void SwitchAllOff();

    sim::SimulatedBoard& m_board;
    std::array<Line, sim::FaultCount> m_lines;
};

} // namespace tqx
