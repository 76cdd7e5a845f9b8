#pragma once

#include "strip_chart/model.h"
#include "strip_chart/paper.h"

#include <QRegion>

#include <map>

namespace tqx {

/// The pictures that a chart is put together from: what stands still (title, legend, value labels),
/// the paper, and the time labels beneath it.
class StripLayers {
public:
    /// Lays the chart out for `size` at `pixelRatio`, unless nothing changed since.
    void LayOut(StripModel& model, const QSize& size, double pixelRatio, int buttonsWidth);

    /// Has the next LayOut do its work anew: a text, a font or a caption's colour changed.
    void Invalidate() { m_valid = false; }

    /// Has every column drawn anew.
    void InvalidatePaper() { m_paper.Invalidate(); }

    const StripLayout& Layout() const { return m_layout; }

    double PixelRatio() const { return m_pixelRatio; }

    double ValueStep() const { return m_valueStep; }

    /// @name From the screen, in device-independent pixels, to what stands there, and back
    /// @{
    StripTime TimeAt(const StripModel& model, double x) const; ///< the last moment of the column
    double XOf(const StripModel& model, StripTime time) const;
    double ValueAt(const StripModel& model, double y) const;
    double YOf(const StripModel& model, double value) const;
    /// @}

    /// Draws what came since the last frame, and says where the picture changed.
    QRegion DrawFrame(const StripModel& model);

    void Paint(QPainter& painter, const QRegion& region, const StripModel& model) const;

private:
    StripTextSizes MeasureTexts(const StripModel& model) const;
    void DrawStill(const StripModel& model);
    void DrawLegend(QPainter& painter, const StripModel& model) const;
    void PaintTimes(QPainter& painter, const StripModel& model) const;
    void PaintOffScale(QPainter& painter, const StripModel& model) const;
    const QImage& TimeLabel(const StripModel& model, StripTime tick) const;
    QRect OnScreen(const QRect& rect) const;

    StripLayout m_layout{};
    QRect m_paperOnScreen;
    QSize m_size;
    double m_pixelRatio = 0;
    bool m_valid = false;
    bool m_stillValid = false;
    StripRange m_stillValues{0, 0};
    StripInks m_stillInks{};
    int m_stillPick = -1;
    double m_valueStep = 1;
    StripTime m_timeStep = StripSecond;
    std::int64_t m_shownSecond = -1;
    StripOffScale m_offScale;
    QImage m_still;
    StripPaper m_paper;
    mutable std::map<StripTime, QImage> m_timeLabels; ///< in pixels of the screen
};

/// Draws the sign of a trace in a table: hollow when the trace is hidden.
void PaintStripSwatch(QPainter& painter, const QRectF& swatch, QRgb colour, bool filled);

/// Draws what lies over a chart's paper: the cursors with what they read, and the notice of a view
/// that stands still.
void PaintStripOverlay(QPainter& painter, const StripModel& model, const StripLayers& layers);

/// Where the table of read-outs stands: where the user has put it, else at the side of the paper
/// that leaves the cursors free. Empty without a cursor.
QRect StripReadoutBox(const StripModel& model, const StripLayers& layers);

} // namespace tqx
