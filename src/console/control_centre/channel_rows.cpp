#include "control_centre/channel_rows.h"

#include <controls/number_text.h>
#include <controls/row_label.h>

#include <cstdint>

namespace tqx {
namespace {

QString TooltipOfRow(int row) {
    return IsHeadingRow(row) ? QStringLiteral("Put this group on the chart")
                             : QStringLiteral("Put this channel and its limits on the bargraph");
}

} // namespace

ChannelRows::ChannelRows(MonitorState& state, QWidget* parent)
    : m_state(state) {
    for (int row = 0; row < RowCount; ++row) {
        auto* const label = new RowLabel(TextOf(CaptionOfRow(row)), parent);
        label->setObjectName(QStringLiteral("visualdisplaytext(%1)").arg(row));
        label->setToolTip(TooltipOfRow(row));
        label->setCursor(Qt::PointingHandCursor);
        m_rows.at(static_cast<std::size_t>(row)) = label;
    }
    Visible(RowWithoutChannel, false);
    Row(RowWithoutChannel).setEnabled(false);
}

void ChannelRows::Hover(int row) {
    HoverRows(m_rows, m_state.HoverRow, row);
}

void ChannelRows::Pick(int row) {
    m_state.HoverRow = row;
    if (!IsHeadingRow(row)) {
        m_state.SelectedChannel = static_cast<std::int16_t>(row);
    }
    MarkClicked(GroupOf(row), Row(row));
}

std::span<RowLabel* const> ChannelRows::GroupOf(int row) const {
    const std::span<RowLabel* const> rows(m_rows);
    return IsHeadingRow(row) ? rows.first(FirstTemperatureRow) : rows.subspan(FirstTemperatureRow);
}

} // namespace tqx
