#pragma once

#include "board_page.h"

namespace tqx {

namespace sim {
class SimulatedBoard;
}

/// Speed of the bus, the plug and the power.
class BusPage : public BoardPage {
    Q_OBJECT

public:
    explicit BusPage(sim::SimulatedBoard& board);

private:
    QWidget* MakeSpeeds();
    QWidget* MakeConnection();

    sim::SimulatedBoard& m_board;
};

} // namespace tqx
