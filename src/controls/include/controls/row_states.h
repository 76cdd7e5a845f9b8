#pragma once

#include "controls/row_label.h"

#include <span>

/// How rows change colour under the pointer and by a click, wherever rows of one group stand.
namespace tqx {

/// The colour of a row that the pointer has left.
constexpr RowColour AfterPointerLeft(RowColour colour) {
    switch (colour) {
    case RowColour::Hovered:
        return RowColour::Plain;
    case RowColour::Selected:
        return RowColour::SelectedAway;
    default:
        return colour;
    }
}

/// The colour of a row that the pointer has come to.
constexpr RowColour AfterPointerEntered(RowColour colour) {
    switch (colour) {
    case RowColour::Plain:
        return RowColour::Hovered;
    case RowColour::SelectedAway:
        return RowColour::Selected;
    default:
        return colour;
    }
}

/// The colour of a clicked row, after what the click did to the others.
constexpr RowColour AfterClick(RowColour colour) {
    return colour == RowColour::Hovered ? RowColour::Selected : RowColour::Hovered;
}

/// The pointer has moved over row `index` of `rows`: the row it was over last, `hoverRow`, lets go
/// of it, and row `index` takes it.
void HoverRows(std::span<RowLabel* const> rows, int& hoverRow, int index);

/// A click on `row` of `group`: it becomes the one selected row of the group when the pointer is on
/// it, and stays so on a repeated click.
void MarkClicked(std::span<RowLabel* const> group, RowLabel& row);

} // namespace tqx
