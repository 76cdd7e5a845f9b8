#pragma once

#include "board_page.h"

#include <simulated/bus_trace.h>

#include <QAbstractListModel>
#include <QFont>
#include <QSize>

#include <vector>

class QHBoxLayout;
class QListView;
class QPushButton;

namespace tqx {

namespace sim {
class SimulatedBoard;
}

/// The transfers of a bus trace as rows of a list, the oldest first. The rows stand still between
/// two calls of Refresh.
class TraceModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// The trace must outlive the model. `face`: the fixed-width face that the rows are shown in.
    TraceModel(sim::BusTrace& trace, const QFont& face, QObject* parent = nullptr);

    /// Takes over what the trace keeps at this moment. False when nothing has changed.
    bool Refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    /// The text of a row; and, as size hint, that of the longest row for all of them, so that a
    /// list need look at one.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// Seconds since the board was made, and the transfer.
    QString TextOf(int row) const;

private:
    sim::BusTrace& m_trace;
    QFont m_face;
    std::uint64_t m_version = 0;
    std::vector<sim::TraceLine> m_lines;
    QSize m_rowSize;
};

/// The last transfers on the bus, decoded.
class TracePage : public BoardPage {
    Q_OBJECT

public:
    explicit TracePage(sim::SimulatedBoard& board);

    void Refresh() override;

private:
    void MakeList();
    QHBoxLayout* MakeButtons();
    void Copy() const;

    sim::BusTrace& m_trace;
    TraceModel m_model;
    QListView* m_list = nullptr;
};

} // namespace tqx
