#pragma once

#include "strip_chart_model.h"
#include "strip_chart_paper.h"

#include <QRegion>

#include <map>

namespace tqx {

/// The pictures that a chart is put together from: what stands still (title, legend, value labels),
/// the paper, and the time labels beneath it.
class StripLayers {
public:
    /// Lays the chart out for `size` at `pixelRatio`, unless nothing changed since.
    void LayOut(StripModel& model, const QSize& size, double pixelRatio, int buttonsWidth);

    /// Has the next LayOut do its work anew: a text or a font changed.
    void Invalidate() { m_valid = false; }

    /// Has the still picture and every column drawn anew: a colour or the range changed.
    void InvalidateInks();

    const StripLayout& Layout() const { return m_layout; }

    /// Draws what came since the last frame, and says where the picture changed.
    QRegion DrawFrame(const StripModel& model);

    void Paint(QPainter& painter, const QRegion& region, const StripModel& model) const;

private:
    StripTextSizes MeasureTexts(const StripModel& model) const;
    void DrawStill(const StripModel& model);
    void DrawLegend(QPainter& painter, const StripModel& model) const;
    void PaintTimes(QPainter& painter, const StripModel& model) const;
    const QImage& TimeLabel(const StripModel& model, StripTime tick) const;
    QRect OnScreen(const QRect& rect) const;

    StripLayout m_layout{};
    QRect m_paperOnScreen;
    QSize m_size;
    double m_pixelRatio = 0;
    bool m_valid = false;
    bool m_stillValid = false;
    StripRange m_stillValues{0, 0};
    double m_valueStep = 1;
    StripTime m_timeStep = StripSecond;
    std::int64_t m_shownSecond = -1;
    QImage m_still;
    StripPaper m_paper;
    mutable std::map<StripTime, QImage> m_timeLabels; ///< in pixels of the screen
};

} // namespace tqx
