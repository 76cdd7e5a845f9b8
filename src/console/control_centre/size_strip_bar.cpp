#include "control_centre/size_strip_bar.h"

#include "control_centre/strip_groups.h"

#include <controls/linear_gauge.h>
#include <controls/number_text.h>
#include <controls/strip_captions.h>
#include <controls/strip_chart.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tqx {
namespace {

/// One pointer of the gauge: its extent across it, and whether the user can drag it.
struct PointerShape {
    int Index;
    double Inner;
    double Outer;
    std::optional<double> Width;
    int MouseControl;
};

constexpr double HandleWidth = 0.06;

constexpr std::array<PointerShape, 4> TwoHandles{{
    {BandA, 0.91, 1, {}, 1},
    {BandB, 0, 0.12, {}, 1},
    {LowHandle, 0, 1, HandleWidth, 1},
    {HighHandle, 0, 1, HandleWidth, 1},
}};

/// Everything but the one handle, which comes last.
constexpr std::array<PointerShape, 3> CollapsedPointers{{
    {BandA, 1, 1, {}, 0},
    {BandB, 1, 1, {}, 0},
    {HighHandle, 1, 1, 0.0, 0},
}};

constexpr PointerShape OneHandle{LowHandle, 0, 1, HandleWidth, 1};
constexpr PointerShape NoHandle{LowHandle, 1, 1, 0.0, 0};

/// The scale of a group of rows.
struct RowScale {
    int FirstRow;
    int LastRow;
    int Handles;
    int Decimals;
    double Max;
    double Min;
};

constexpr std::array<RowScale, 10> GaugeScales{{
    {3, 6, 2, 0, 127, -128},
    {7, 14, 1, 0, 15000, 0},
    {15, 15, 2, 3, 3.984, 0.016},
    {16, 16, 2, 3, 6.634, 0.026},
    {17, 17, 2, 3, 2.428, -15.928},
    {18, 18, 2, 3, 15.938, 0.062},
    {19, 19, 2, 3, 2.988, 0.012},
    {20, 24, 2, 3, 2.988, 0.012},
    {25, 29, 2, 3, 2.49, 0.01},
    {30, 31, 2, 3, 4.423, 0.0172},
}};

void ShapePointer(LinearGauge& gauge, const PointerShape& shape) {
    gauge.PointerIndex(shape.Index);
    gauge.PointerInner(shape.Inner);
    gauge.PointerOuter(shape.Outer);
    if (shape.Width) {
        gauge.PointerWidth(*shape.Width);
    }
    gauge.PointerMouseControl(shape.MouseControl);
}

void SetDecimals(LinearGauge& gauge, int pointer, int decimals) {
    gauge.PointerIndex(pointer);
    gauge.PointerDecimals(decimals);
}

void SetYRange(StripChart& chart, const StripGroupSetting& group) {
    const auto lowerEnds = [&] {
        chart.YFloor(group.YFloor);
        chart.YLow(group.YLow);
    };
    const auto upperEnds = [&] {
        chart.YCeiling(group.YCeiling);
        chart.YHigh(group.YHigh);
    };
    if (group.Order == YOrder::LowerEndsFirst) {
        lowerEnds();
        upperEnds();
    } else {
        upperEnds();
        lowerEnds();
    }
}

void SetCaption(StripChart& chart, int caption, std::string_view text) {
    chart.CaptionIndex(caption);
    chart.Caption(TextOf(text));
}

void SetLegend(StripChart& chart, int variable, std::string_view text) {
    SetCaption(chart, strip::FirstLegendCaption + variable, text);
    chart.VariableIndex(variable);
    chart.CaptionColor(chart.VariableColor());
}

void SetUpStrip(StripChart& chart, const StripGroupSetting& group,
                const SizeStripBar::RowVisible& rowVisible) {
    chart.ClearStrip();
    chart.StripSetting24(0);
    SetYRange(chart, group);
    SetCaption(chart, strip::TitleCaption, group.Title);
    chart.Unit(TextOf(group.Unit));
    int variable = 0;
    for (const GroupTrace& trace : group.Traces) {
        chart.NameVariable(variable, TextOf(trace.Legend));
        if (trace.RowTested == AlwaysWritten || rowVisible(trace.RowTested)) {
            SetLegend(chart, variable, trace.Legend);
        } else {
            SetCaption(chart, strip::FirstLegendCaption + variable, {});
        }
        ++variable;
    }
    for (int caption = strip::FirstLegendCaption + variable; caption < strip::CaptionCount;
         ++caption) {
        SetCaption(chart, caption, {});
    }
}

} // namespace

SizeStripBar::SizeStripBar(LinearGauge& gauge, StripChart& chart, RowVisible rowVisible)
    : m_gauge(gauge)
    , m_chart(chart)
    , m_rowVisible(std::move(rowVisible)) {}

void SizeStripBar::PrepareTwoHandleGauge() {
    for (const PointerShape& shape : TwoHandles) {
        ShapePointer(m_gauge, shape);
    }
    m_gauge.PointerFlagA(true);
    m_gauge.PointerFlagB(true);
    m_gauge.GaugeSetting53(0.47);
    m_gauge.GaugeSetting37(0);
}

void SizeStripBar::PrepareOneHandleGauge() {
    for (const PointerShape& shape : CollapsedPointers) {
        ShapePointer(m_gauge, shape);
    }
    m_gauge.PointerFlagA(false);
    m_gauge.PointerFlagB(false);
    ShapePointer(m_gauge, OneHandle);
}

void SizeStripBar::PrepareNoHandleGauge() {
    PrepareOneHandleGauge();
    ShapePointer(m_gauge, NoHandle);
}

void SizeStripBar::SizeGauge(int row) {
    const auto* const scale =
        std::find_if(GaugeScales.begin(), GaugeScales.end(), [row](const RowScale& group) {
            return group.FirstRow <= row && row <= group.LastRow;
        });
    if (scale == GaugeScales.end()) {
        return;
    }
    if (scale->Handles == 2) {
        PrepareTwoHandleGauge();
        SetDecimals(m_gauge, LowHandle, scale->Decimals);
        SetDecimals(m_gauge, HighHandle, scale->Decimals);
    } else {
        PrepareOneHandleGauge();
        SetDecimals(m_gauge, LowHandle, scale->Decimals);
    }
    m_gauge.ScaleMax(scale->Max);
    m_gauge.ScaleMin(scale->Min);
}

void SizeStripBar::SizeTempStrip() {
    SetUpStrip(m_chart, StripGroups[TempGroup], m_rowVisible);
}

void SizeStripBar::SizeVoltStrip() {
    SetUpStrip(m_chart, StripGroups[VoltGroup], m_rowVisible);
}

void SizeStripBar::SizeFanStrip() {
    SetUpStrip(m_chart, StripGroups[FanGroup], m_rowVisible);
}

void SizeStripBar::SizeStrip(int stripGroup) {
    switch (stripGroup) {
    case TempGroup:
        SizeTempStrip();
        break;
    case VoltGroup:
        SizeVoltStrip();
        break;
    case FanGroup:
        SizeFanStrip();
        break;
    default:
        break;
    }
}

} // namespace tqx
