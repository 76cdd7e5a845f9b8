#pragma once

#include "board_page.h"

namespace tqx {

class SimulatedBoard;

/// Speed of the bus, the plug and the power.
class BusPage : public BoardPage {
    Q_OBJECT

public:
    explicit BusPage(SimulatedBoard& board);

private:
    QWidget* MakeSpeeds();
    QWidget* MakeConnection();

    SimulatedBoard& m_board;
};

} // namespace tqx
