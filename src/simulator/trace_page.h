#pragma once

#include "board_page.h"
#include "trace_model.h"

class QHBoxLayout;
class QListView;
class QPushButton;

namespace tqx {

class SimulatedBoard;

/// The last transfers on the bus, decoded.
class TracePage : public BoardPage {
    Q_OBJECT

public:
    explicit TracePage(SimulatedBoard& board);

    void Refresh() override;

private:
    void MakeList();
    QHBoxLayout* MakeButtons();
    void Copy() const;

    BusTrace& m_trace;
    TraceModel m_model;
    QListView* m_list = nullptr;
};

} // namespace tqx
