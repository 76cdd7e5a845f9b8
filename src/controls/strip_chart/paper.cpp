#include "strip_chart/paper.h"

#include "controls/look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tqx::strip {
namespace {

/// Columns that are drawn in one go: as wide as a line of the processor's cache.
constexpr int BlockColumns = 16;

constexpr QRgb Casing = look::QuietInk;
constexpr double LineWidth = 1.3; ///< in device-independent pixels

/// Pixels of the screen that a line is wide, and how far its casing reaches beyond it.
struct PenSize {
    float Width;
    int Columns; ///< how many columns a point of the line covers
    int Casing;

    /// How many columns before its own, and after it, a point of the line still colours.
    int Before(bool cased) const { return (Columns - 1) / 2 + (cased ? Casing : 0); }

    int After(bool cased) const { return Columns / 2 + (cased ? Casing : 0); }
};

PenSize PenFor(const PaperSetup& setup) {
    const double ratio = setup.PixelRatio;
    const int whole = std::max(1, static_cast<int>(std::lround(ratio)));
    return {static_cast<float>(LineWidth * ratio), whole, whole};
}

/// The part of a column of an image that one trace covers.
class ColumnInk {
public:
    ColumnInk(QRgb* top, std::ptrdiff_t stride, int height)
        : m_top(top)
        , m_stride(stride)
        , m_height(height) {}

    /// Rows from `top` to `bottom`, whose ends cover their pixel in part.
    void FillSmooth(float top, float bottom, QRgb colour) const {
        const float from = std::max(top, 0.0F);
        const float until = std::min(bottom, static_cast<float>(m_height));
        if (!(from < until)) {
            return;
        }
        const int first = static_cast<int>(from);
        const int last = static_cast<int>(until);
        if (first == last) {
            Blend(first, until - from, colour);
            return;
        }
        Blend(first, static_cast<float>(first + 1) - from, colour);
        Fill(first + 1, last, colour);
        if (last < m_height) {
            Blend(last, until - static_cast<float>(last), colour);
        }
    }

private:
    void Fill(int first, int until, QRgb colour) const {
        QRgb* pixel = m_top + first * m_stride;
        for (int row = first; row < std::min(until, m_height); ++row, pixel += m_stride) {
            *pixel = colour;
        }
    }

    void Blend(int row, float coverage, QRgb colour) const {
        QRgb& pixel = m_top[row * m_stride];
        const auto alpha = static_cast<std::uint32_t>(coverage * 256.0F);
        const std::uint32_t rest = 256 - alpha;
        const std::uint32_t redBlue =
            ((colour & 0xFF00FFU) * alpha + (pixel & 0xFF00FFU) * rest) >> 8 & 0xFF00FFU;
        const std::uint32_t green =
            ((colour & 0xFF00U) * alpha + (pixel & 0xFF00U) * rest) >> 8 & 0xFF00U;
        pixel = 0xFF000000U | redBlue | green;
    }

    QRgb* m_top;
    std::ptrdiff_t m_stride;
    int m_height;
};

} // namespace

void Paper::Resize(const QSize& pixels) {
    if (pixels != m_image.size()) {
        m_image = QImage(pixels, QImage::Format_RGB32);
        m_valid = false;
    }
}

Paper::Change Paper::Draw(const History& history, const PaperSetup& setup) {
    const Columns columns = setup.View.Columns();
    const int count = m_image.width();
    const std::int64_t end = columns.First + count;
    const std::int64_t shift = columns.First - m_first;
    const bool anew = !m_valid || columns.Width != m_width || setup.View.Values() != m_values ||
                      std::abs(shift) >= count;
    std::int64_t from = columns.First;
    std::int64_t until = end;
    if (!anew) {
        const PenSize pen = PenFor(setup);
        const bool grown = history.Newest() != m_drawnUntil;
        from = grown ? FirstChangedColumn(columns, m_drawnUntil) - pen.Before(true) : end;
        until = grown ? columns.Of(history.Newest()) + pen.After(true) + 1 : end;
        if (shift > 0) {
            from = std::min(from, m_first + count);
            until = end;
        } else if (shift < 0) {
            from = columns.First;
            until = std::max(grown ? until : m_first, m_first);
        }
        from = std::max(from, columns.First);
        until = std::min(until, end);
    }
    m_valid = true;
    m_first = columns.First;
    m_width = columns.Width;
    m_values = setup.View.Values();
    m_drawnUntil = history.Newest();
    if (from >= until) {
        return {};
    }
    DrawColumns(history, setup, from, until);
    if (anew || shift != 0) {
        return {0, count};
    }
    return {static_cast<int>(from - columns.First), static_cast<int>(until - columns.First)};
}

int Paper::Ring(std::int64_t column) const {
    const std::int64_t rest = column % m_image.width();
    return static_cast<int>(rest < 0 ? rest + m_image.width() : rest);
}

void Paper::DrawColumns(const History& history, const PaperSetup& setup, std::int64_t from,
                        std::int64_t until) {
    FindEdges(history, setup, from, until);
    RuleColumns(setup, from, until);
    const auto count = static_cast<std::size_t>(until - from);
    const std::ptrdiff_t stride = m_image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(m_image.bits());
    const auto start = static_cast<std::size_t>(Ring(from));
    const auto wrap = static_cast<std::size_t>(m_image.width());
    for (std::size_t begin = 0; begin < count; begin += BlockColumns) {
        const std::size_t end = std::min(count, begin + BlockColumns);
        const Edges* edges = m_edges.data();
        for (const Ink& ink : setup.Inks) {
            if (!ink.Shown) {
                continue;
            }
            for (const bool casing : {true, false}) {
                if (casing && !ink.Cased) {
                    continue;
                }
                const QRgb colour = casing ? Casing : ink.Colour;
                for (std::size_t i = begin; i < end; ++i) {
                    const std::size_t ring = start + i < wrap ? start + i : start + i - wrap;
                    const ColumnInk column(pixels + ring, stride, m_image.height());
                    column.FillSmooth(edges[i].Top, edges[i].Bottom, colour);
                }
                edges += count;
            }
        }
    }
}

/// The rows between which each trace that is shown covers the columns, casing first where it has
/// one. A line has its width in both directions, so a steep one is no thinner than a flat one.
void Paper::FindEdges(const History& history, const PaperSetup& setup, std::int64_t from,
                      std::int64_t until) {
    const PenSize pen = PenFor(setup);
    const auto count = static_cast<std::size_t>(until - from);
    m_edges.clear();
    const Range& values = setup.View.Values();
    const auto rows = static_cast<float>(RowOf(values.Low, values, m_image.height()));
    const float scale = rows / static_cast<float>(values.Span());
    const auto high = static_cast<float>(values.High);
    for (int variable = 0; variable < VariableCount; ++variable) {
        const Ink& ink = setup.Inks[static_cast<std::size_t>(variable)];
        if (!ink.Shown) {
            continue;
        }
        const int before = pen.After(ink.Cased);
        const int after = pen.Before(ink.Cased);
        m_extents.resize(count + static_cast<std::size_t>(before + after));
        FindExtents(history.Trace(variable), {from - before, setup.View.Columns().Width},
                    m_extents);
        for (const bool casing : {true, false}) {
            if (casing && !ink.Cased) {
                continue;
            }
            const float half = pen.Width / 2 + static_cast<float>(casing ? pen.Casing : 0);
            for (std::size_t i = 0; i < count; ++i) {
                Extent extent;
                for (int k = -pen.After(casing); k <= pen.Before(casing); ++k) {
                    const Extent& near = m_extents[i + static_cast<std::size_t>(before + k)];
                    extent.Take(near.Low, near.High);
                }
                m_edges.push_back({(high - extent.High) * scale + 0.5F - half,
                                   (high - extent.Low) * scale + 0.5F + half});
            }
        }
    }
}

/// Blank columns with the grid on them.
void Paper::RuleColumns(const PaperSetup& setup, std::int64_t from, std::int64_t until) {
    const int thickness = std::max(1, static_cast<int>(setup.PixelRatio));
    const std::ptrdiff_t stride = m_image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    auto* const pixels = reinterpret_cast<QRgb*>(m_image.bits());
    const auto fill = [&](std::int64_t begin, std::int64_t end, int top, int bottom, QRgb colour) {
        for (std::int64_t column = begin; column < end;) {
            const int ring = Ring(column);
            const auto width =
                static_cast<int>(std::min<std::int64_t>(end - column, m_image.width() - ring));
            for (int row = top; row < bottom; ++row) {
                std::fill_n(pixels + row * stride + ring, width, colour);
            }
            column += width;
        }
    };
    const int height = m_image.height();
    fill(from, until, 0, height, look::Paper);
    for (const double tick : ValueTicks(setup.View.Values(), setup.ValueStep)) {
        const int row = static_cast<int>(std::lround(RowOf(tick, setup.View.Values(), height)));
        fill(from, until, std::clamp(row, 0, height), std::clamp(row + thickness, 0, height),
             look::PaperGrid);
    }
    const Columns columns{from, setup.View.Columns().Width};
    for (const Time tick : TimeTicks(columns.Begin(from - thickness), columns.Begin(until),
                                     setup.TimeStep, *setup.Wall, *setup.Zone)) {
        const std::int64_t column = columns.Of(tick);
        fill(std::max(column, from), std::min(column + thickness, until), 0, height,
             look::PaperGrid);
    }
}

void Paper::CopyTo(QPainter& painter, const QPoint& origin, const QRect& clip) const {
    const QRect part = clip.intersected(QRect(origin, m_image.size())).translated(-origin);
    if (part.isEmpty()) {
        return;
    }
    const int start = Ring(m_first + part.left());
    const int straight = std::min(part.width(), m_image.width() - start);
    const QPoint at = part.topLeft() + origin;
    painter.drawImage(at, m_image, QRect(start, part.top(), straight, part.height()));
    if (straight < part.width()) {
        painter.drawImage(at + QPoint(straight, 0), m_image,
                          QRect(0, part.top(), part.width() - straight, part.height()));
    }
}

} // namespace tqx::strip
