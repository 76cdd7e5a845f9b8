#pragma once

#include "strip_chart/model.h"
#include "strip_chart/paper.h"

#include <QRegion>

#include <map>

namespace tqx::strip {

/// The pictures that a chart is put together from: what stands still (title, legend, value labels),
/// the paper, and the time labels beneath it.
class Layers {
public:
    /// Lays the chart out for `size` at `pixelRatio`, unless nothing changed since. Whether what
    /// stands still looks different now.
    bool LayOut(Model& model, const QSize& size, double pixelRatio, int buttonsWidth);

    /// Has the next LayOut do its work anew: a text, a font or a caption's colour changed.
    void Invalidate() { m_valid = false; }

    /// Has every column and every time label drawn anew.
    void InvalidatePaper() {
        m_paper.Invalidate();
        m_timeLabels.clear();
    }

    const strip::Layout& Layout() const { return m_layout; }

    double PixelRatio() const { return m_pixelRatio; }

    /// @name From the screen, in device-independent pixels, to what stands there, and back
    /// @{
    Time TimeAt(const Model& model, double x) const; ///< the last moment of the column
    double XOf(const Model& model, Time time) const;
    double ValueAt(const Model& model, double y) const;
    double YOf(const Model& model, double value) const;
    /// @}

    /// Draws what came since the last frame, and says where the picture changed.
    QRegion DrawFrame(const Model& model);

    void Paint(QPainter& painter, const QRegion& region, const Model& model) const;

    /// Writes the day that the right edge shows into the room of the buttons.
    void PaintDate(QPainter& painter, const Model& model) const;

private:
    void MeasureReadout(TextSizes& sizes) const;
    TextSizes MeasureTexts(const Model& model) const;
    void DrawStill(const Model& model);
    void DrawLegend(QPainter& painter, const Model& model) const;
    void DrawReadoutHeadings(QPainter& painter) const;
    void DrawReadout(QPainter& painter, const QRect& line, int variable) const;
    void PaintTimes(QPainter& painter, const Model& model) const;
    void PaintOffScale(QPainter& painter, const Model& model) const;
    const QImage& TimeLabel(const Model& model, Time tick) const;
    QRect OnScreen(const QRect& rect) const;

    strip::Layout m_layout{};
    QRect m_paperOnScreen;
    QSize m_size;
    double m_pixelRatio = 0;
    bool m_valid = false;
    bool m_stillValid = false;
    Range m_stillValues{0, 0};
    Inks m_stillInks{};
    int m_stillPick = -1;
    Readout m_readout; ///< written into the legend
    std::size_t m_readoutColumns = 0;
    int m_valueWidth = 0; ///< of a value of the read-out
    double m_valueStep = 1;
    Time m_timeStep = Second;
    std::int64_t m_shownSecond = -1;
    OffScale m_offScale;
    QImage m_still;
    Paper m_paper;
    mutable std::map<Time, QImage> m_timeLabels; ///< in pixels of the screen
};

/// Draws the sign of a trace in a table: hollow when the trace is hidden.
void PaintSwatch(QPainter& painter, const QRectF& swatch, QRgb colour, bool filled);

/// Draws what lies over a chart's paper: the cursors, and the notice of a view that stands still.
void PaintOverlay(QPainter& painter, const Model& model, const Layers& layers);

} // namespace tqx::strip
