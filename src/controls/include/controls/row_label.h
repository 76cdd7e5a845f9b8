#pragma once

#include "controls/left_click.h"

#include <QString>
#include <QWidget>

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
/// it (see row_states.h). A selected row carries a bar at its left end as well as its colour.
class RowLabel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption CONSTANT)
    Q_PROPERTY(tqx::RowColour ForeColor READ ForeColor WRITE ForeColor)

public:
    explicit RowLabel(const QString& caption, QWidget* parent = nullptr);

    QString Caption() const { return m_caption; }

    RowColour ForeColor() const { return m_colour; }

    void ForeColor(RowColour colour);

    /// Whether its colour is one of the two of a selected row.
    bool IsSelected() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The pointer has come or moved over the row. Comes before `Clicked` too, whatever the row was
    /// clicked with, so that a clicked row is always a row that is pointed at.
    void MouseMoved();

    /// Left button, Enter or Space.
    void Clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_caption;
    RowColour m_colour = RowColour::Plain;
    LeftClick m_click;
};

} // namespace tqx
