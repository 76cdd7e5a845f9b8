#include "inputs_page.h"

#include <controls/look.h>

#include <QGridLayout>

#include <algorithm>

namespace tqx {
namespace {

constexpr int SliderColumn = 4; // the last

} // namespace

InputsPage::InputsPage(SimulatedBoard& board, std::initializer_list<InputKind> kinds) {
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(2 * look::Grid);
    grid->setVerticalSpacing(look::Grid / 2);
    grid->setColumnStretch(SliderColumn, 1);
    for (const InputFacts& facts : ChipInputs) {
        if (std::find(kinds.begin(), kinds.end(), facts.Kind) != kinds.end()) {
            m_lines.push_back(new InputLine(board, facts.Input, *grid, grid->rowCount()));
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

void InputsPage::Refresh() {
    for (InputLine* line : m_lines) {
        line->Refresh();
    }
}

} // namespace tqx
