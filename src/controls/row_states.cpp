#include "controls/row_states.h"

namespace tqx {

void HoverRows(std::span<RowLabel* const> rows, int& hoverRow, int index) {
    if (hoverRow != index) {
        RowLabel& left = *rows[static_cast<std::size_t>(hoverRow)];
        left.ForeColor(AfterPointerLeft(left.ForeColor()));
        hoverRow = index;
    }
    RowLabel& entered = *rows[static_cast<std::size_t>(index)];
    entered.ForeColor(AfterPointerEntered(entered.ForeColor()));
}

void MarkClicked(std::span<RowLabel* const> group, RowLabel& row) {
    if (row.ForeColor() == RowColour::Selected) {
        row.ForeColor(RowColour::Hovered);
    } else {
        for (RowLabel* other : group) {
            if (other != &row) {
                other->ForeColor(RowColour::Plain);
            }
        }
    }
    row.ForeColor(AfterClick(row.ForeColor()));
}

} // namespace tqx
