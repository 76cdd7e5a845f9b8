#pragma once

#include "control_centre/monitor_rows.h"

#include <controls/row_label.h>
#include <device/display_rows.h>

#include <array>
#include <span>

namespace tqx {

/// The 32 labels `visualdisplaytext`. Their colours are the only record of which row is picked:
/// one of the headings and one of the channels.
class ChannelRows {
public:
    /// The rows are made as children of `parent`, which lays them out.
    ChannelRows(MonitorState& state, QWidget* parent);

    RowLabel& Row(int row) const { return *m_rows.at(static_cast<std::size_t>(row)); }

    /// A row's own Visible, whether or not its tab is on view.
    /// @{
    bool Visible(int row) const { return !Row(row).isHidden(); }
    void Visible(int row, bool visible) { Row(row).setVisible(visible); }

    /// @}

    /// The pointer has moved over a row.
    void Hover(int row);
    /// Makes a row the picked one of its group.
    void Pick(int row);

private:
    std::span<RowLabel* const> GroupOf(int row) const;

    MonitorState& m_state;
    std::array<RowLabel*, RowCount> m_rows{};
};

} // namespace tqx
