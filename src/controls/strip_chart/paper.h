#pragma once

#include "strip_chart/geometry.h"
#include "strip_chart/model.h"

#include <QImage>

class QPainter;

namespace tqx::strip {

/// What a chart's paper shows, apart from the samples.
struct PaperSetup {
    strip::View View;
    strip::Inks Inks;
    const strip::Wall* Wall = nullptr;
    const strip::Zone* Zone = nullptr;
    Time TimeStep = Second;
    double ValueStep = 1;
    double PixelRatio = 1;
};

/// The paper with grid and traces as an image in pixels of the screen. The image is a ring of
/// columns: moving on by a column draws that column and moves nothing. A column is drawn from where
/// each trace reaches lowest and highest in it, so its cost does not follow from how many samples
/// it shows.
class Paper {
public:
    /// Columns of the paper as it stands on the screen, from Begin up to but without End.
    struct Change {
        int Begin = 0;
        int End = 0;

        bool Empty() const { return Begin >= End; }
    };

    void Resize(const QSize& pixels);

    QSize Size() const { return m_image.size(); }

    /// Has every column drawn anew the next time.
    void Invalidate() { m_valid = false; }

    /// Draws what `setup` and the samples since the last time ask for, and says what changed on
    /// the screen.
    Change Draw(const History& history, const PaperSetup& setup);

    /// Copies the part of the paper that lies in `clip` to the screen, with its left upper corner
    /// at `origin`; both in pixels of the screen, and the painter must not scale.
    void CopyTo(QPainter& painter, const QPoint& origin, const QRect& clip) const;

private:
    struct Edges {
        float Top;
        float Bottom;
    };

    int Ring(std::int64_t column) const;
    void DrawColumns(const History& history, const PaperSetup& setup, std::int64_t from,
                     std::int64_t until);
    void FindEdges(const History& history, const PaperSetup& setup, std::int64_t from,
                   std::int64_t until);
    void RuleColumns(const PaperSetup& setup, std::int64_t from, std::int64_t until);

    QImage m_image;
    bool m_valid = false;
    std::int64_t m_first = 0;
    Time m_width = 0;
    Range m_values{0, 0};
    Time m_drawnUntil = 0;
    std::vector<Extent> m_extents; ///< of one trace, kept for its memory
    std::vector<Edges> m_edges;    ///< line and casing of every trace, per column
};

} // namespace tqx::strip
