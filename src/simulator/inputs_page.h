#pragma once

#include "board_page.h"
#include "input_line.h"

#include <initializer_list>
#include <vector>

namespace tqx {

/// Some of the board's inputs, one a line.
class InputsPage : public BoardPage {
public:
    /// The inputs of these kinds, in the chip's order.
    InputsPage(SimulatedBoard& board, std::initializer_list<InputKind> kinds);

    void Refresh() override;

private:
    std::vector<InputLine*> m_lines;
};

} // namespace tqx
