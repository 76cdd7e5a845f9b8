#pragma once

#include <functional>

namespace tqx {

class LinearGauge;
class StripChart;

/// The bands by their pointer numbers. Both span from the low to the high handle; on a fan they are
/// collapsed, and the low handle is the only one.
/// @{
inline constexpr int BandA = 0;
inline constexpr int BandB = 1;

/// @}

/// Sizes the gauge for a channel and the strip chart for a group of channels.
class SizeStripBar {
public:
    /// Whether a row's own Visible is set, on whatever tab it stands.
    using RowVisible = std::function<bool(int row)>;

    SizeStripBar(LinearGauge& gauge, StripChart& chart, RowVisible rowVisible);

    /// Handles, decimals and scale for the row's group of channels; nothing for a heading.
    /// PointerIndex is left at the last handle: 3, on fans 2.
    void SizeGauge(int row);

    /// Two limit handles, and a band between them along either edge.
    void PrepareTwoHandleGauge();
    /// One limit handle alone, as fans have it.
    void PrepareOneHandleGauge();
    /// Neither handles nor bands: no channel is on the gauge.
    void PrepareNoHandleGauge();

    /// Each empties the chart, and names only the channels whose rows are visible.
    /// @{
    void SizeTempStrip();
    void SizeVoltStrip();
    void SizeFanStrip();
    /// @}

    /// The one of these three for StripGroup 0, 1 or 2; nothing for any other value.
    void SizeStrip(int stripGroup);

private:
    LinearGauge& m_gauge;
    StripChart& m_chart;
    RowVisible m_rowVisible;
};

} // namespace tqx
