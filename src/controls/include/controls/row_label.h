#pragma once

#include <QAbstractButton>
#include <QString>

#include <span>

namespace tqx {

/// What a row of a list looks like; the colour is the only record of the row's state.
enum class RowColour {
    Plain,        ///< at rest
    Hovered,      ///< under the pointer, not selected
    Selected,     ///< selected and under the pointer
    SelectedAway, ///< selected, the pointer elsewhere
};

/// One row of a list that is picked by a click, on a dark display.
///
/// The row changes nothing by itself: it tells of the pointer and of clicks, and its owner colours
/// it by the functions below. A selected row carries a bar at its left end as well as its colour.
class RowLabel : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ text CONSTANT)
    Q_PROPERTY(tqx::RowColour ForeColor READ ForeColor WRITE ForeColor)

public:
    explicit RowLabel(const QString& caption, QWidget* parent = nullptr);

    RowColour ForeColor() const { return m_colour; }
    void ForeColor(RowColour colour);

    /// Whether its colour is one of the two of a selected row.
    bool IsSelected() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The pointer has come or moved over the row. Comes before `clicked` too, whatever the row was
    /// clicked with (left button, Enter or Space), so that a clicked row is always a row that is
    /// pointed at.
    void MouseMoved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    RowColour m_colour = RowColour::Plain;
};

/// @name How rows change colour under the pointer and by a click, wherever rows of one group stand
/// @{

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
/// @}

} // namespace tqx
