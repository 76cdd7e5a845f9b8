#include "strip_chart/overlay.h"

#include "controls/look.h"
#include "strip_chart/readout.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace tqx {
namespace {

constexpr int Padding = 8;
constexpr int Column = 12; ///< between the columns of the table
constexpr int MostLine = 16;
constexpr int LeastLine = 10;
constexpr int NoticeRoom = 40;     ///< that the notice of a standstill takes from the table
constexpr QSize TableGrip(48, 24); ///< of a table pushed off the paper, what stays on it
constexpr int SwatchWidth = 9;
constexpr double DotRadius = 2.5;

/// The table of read-outs laid out in a paper's height.
struct Table {
    int LineHeight;
    QFont Words;
    QFont Numbers;
    int NameWidth;
    std::vector<int> Widths;
    QSize Size;
};

Table LayOutTable(const StripReadout& readout, int height) {
    Table table{};
    const int lines = static_cast<int>(readout.Lines.size()) + 2;
    table.LineHeight = std::clamp((height - 4 * Padding) / lines, LeastLine, MostLine);
    table.Words = look::WordsFont();
    table.Words.setPixelSize(table.LineHeight - 4);
    table.Numbers = look::NumbersFont();
    table.Numbers.setPixelSize(table.LineHeight - 4);
    const QFontMetrics words(table.Words);
    const QFontMetrics numbers(table.Numbers);
    for (const StripReadout::Line& line : readout.Lines) {
        table.NameWidth = std::max(table.NameWidth, words.horizontalAdvance(line.Name));
    }
    int width = 2 * Padding + SwatchWidth + Padding + table.NameWidth;
    for (std::size_t i = 0; i < readout.Headings.size(); ++i) {
        int column = numbers.horizontalAdvance(readout.Headings[i]);
        for (const StripReadout::Line& line : readout.Lines) {
            column = std::max(column, numbers.horizontalAdvance(line.Values[i]));
        }
        table.Widths.push_back(column);
        width += Column + column;
    }
    table.Size = QSize(width, lines * table.LineHeight + 2 * Padding);
    return table;
}

QString HeadingOver(const StripReadout& readout, std::size_t column) {
    return column < readout.Cursors.size() ? QString::number(readout.Cursors[column] + 1)
                                           : QStringLiteral("2 \u2212 1");
}

void PaintRow(QPainter& painter, const Table& table, const QPoint& at,
              const std::vector<QString>& cells) {
    int x = at.x() + SwatchWidth + Padding + table.NameWidth;
    painter.setFont(table.Numbers);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        x += Column;
        painter.drawText(QRect(x, at.y(), table.Widths[i], table.LineHeight),
                         Qt::AlignRight | Qt::AlignVCenter, cells[i]);
        x += table.Widths[i];
    }
}

void PaintTable(QPainter& painter, const StripModel& model, const StripReadout& readout,
                const Table& table, const QRect& box) {
    QColor ground(look::Paper);
    ground.setAlphaF(0.94F);
    painter.setPen(QPen(QColor(look::Rule), 1));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    QPoint at = box.topLeft() + QPoint(Padding, Padding);
    std::vector<QString> numbers;
    for (std::size_t i = 0; i < readout.Headings.size(); ++i) {
        numbers.push_back(HeadingOver(readout, i));
    }
    painter.setPen(QColor(look::QuietInk));
    PaintRow(painter, table, at, numbers);
    at.ry() += table.LineHeight;
    PaintRow(painter, table, at, readout.Headings);
    for (const StripReadout::Line& line : readout.Lines) {
        at.ry() += table.LineHeight;
        const QRectF swatch(at.x() + 0.5, at.y() + table.LineHeight / 2.0 - 2, SwatchWidth, 4);
        PaintStripSwatch(painter, swatch, model.Ink(line.Variable).Colour, true);
        painter.setPen(QColor(look::PaperInk));
        painter.setFont(table.Words);
        painter.drawText(
            QRect(at.x() + SwatchWidth + Padding, at.y(), table.NameWidth, table.LineHeight),
            Qt::AlignLeft | Qt::AlignVCenter, line.Name);
        PaintRow(painter, table, at, line.Values);
    }
}

void PaintDots(QPainter& painter, const StripModel& model, const StripLayers& layers, double x,
               StripTime moment) {
    painter.setPen(QPen(QColor(look::Paper), 1));
    for (int variable = 0; variable < StripVariableCount; ++variable) {
        const StripInk& ink = model.Ink(variable);
        const auto reading = model.History.Trace(variable).ReadAt(moment);
        if (!ink.Shown || !reading || moment - reading->Time > StripLongestJoin) {
            continue;
        }
        const double y = layers.YOf(model, reading->Value);
        const QRect& paper = layers.Layout().Paper;
        if (y >= paper.top() && y <= paper.bottom() + 1) { // not a number is neither
            painter.setBrush(QColor(ink.Colour));
            painter.drawEllipse(QPointF(x, y), DotRadius, DotRadius);
        }
    }
}

void PaintCursor(QPainter& painter, const StripModel& model, const StripLayers& layers, int cursor,
                 double x) {
    const QRect& paper = layers.Layout().Paper;
    const QColor colour(look::Accent);
    const bool active = model.Cursors.Active == cursor;
    painter.setPen(QPen(colour, 1, active ? Qt::SolidLine : Qt::DashLine));
    painter.drawLine(QPointF(x, paper.top()), QPointF(x, paper.bottom() + 1));
    PaintDots(painter, model, layers, x, *model.Cursors.At[static_cast<std::size_t>(cursor)]);
    const double flagLeft = std::clamp<double>(x - 7, paper.left(), paper.right() - 13);
    const QRectF flag(flagLeft, paper.top(), 14, 14);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(active ? colour : QColor(look::Paper));
    painter.drawRoundedRect(flag, 2, 2);
    painter.setPen(active ? QColor(look::Paper) : colour);
    QFont font = look::NumbersFont();
    font.setPixelSize(11);
    painter.setFont(font);
    painter.drawText(flag, Qt::AlignCenter, QString::number(cursor + 1));
}

void PaintStandstill(QPainter& painter, const StripModel& model, const QRect& paper) {
    const QString text = StripStandstillText(model);
    if (text.isEmpty()) {
        return;
    }
    painter.setFont(look::WordsFont(look::Size::Note, look::Strong));
    const QFontMetrics metrics(painter.font());
    const QSize size(metrics.horizontalAdvance(text) + 2 * Padding, metrics.height() + Padding);
    QRect badge(QPoint(0, 0), size);
    badge.moveCenter(paper.center());
    badge.moveBottom(paper.bottom() - Padding);
    const bool frozen = model.View.Frozen();
    painter.setPen(QPen(QColor(look::Accent), 1));
    painter.setBrush(QColor(frozen ? look::Accent : look::Paper));
    painter.drawRoundedRect(QRectF(badge).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(QColor(frozen ? look::Paper : look::Accent));
    painter.drawText(badge, Qt::AlignCenter, text);
}

/// Where the cursors that stand lie, on the paper or beside it.
std::vector<double> CursorColumns(const StripModel& model, const StripLayers& layers) {
    std::vector<double> columns;
    for (const auto& at : model.Cursors.At) {
        if (at) {
            columns.push_back(layers.XOf(model, *at));
        }
    }
    return columns;
}

/// The place of a table of that size that leaves the cursors free.
QRect BesideCursors(const QRect& paper, const QSize& size, const std::vector<double>& cursors) {
    const QRect left(paper.topLeft() + QPoint(Padding, Padding + 10), size);
    const int room = paper.width() - size.width() - 2 * Padding;
    std::vector<QRect> places = {left, left.translated(room, 0)};
    for (const double x : cursors) {
        const int beside = static_cast<int>(x) + 2 * Padding - left.left();
        places.push_back(left.translated(std::clamp(beside, 0, std::max(room, 0)), 0));
    }
    const auto covered = [&cursors](const QRect& by) {
        return std::count_if(cursors.begin(), cursors.end(), [&by](double x) {
            return x >= by.left() - Padding && x <= by.right() + Padding;
        });
    };
    return *std::min_element(
        places.begin(), places.end(),
        [&](const QRect& one, const QRect& other) { return covered(one) < covered(other); });
}

/// The place of a table of that size at `at` from the paper's corner, with a grip of it on the
/// paper.
QRect WhereItWasPut(const QRect& paper, const QSize& size, const QPoint& at) {
    const auto keep = [](int from, int length, int grip, int room) {
        const int least = std::min(grip - length, 0);
        return std::clamp(from, least, std::max(room - grip, least));
    };
    const QPoint kept(keep(at.x(), size.width(), TableGrip.width(), paper.width()),
                      keep(at.y(), size.height(), TableGrip.height(), paper.height()));
    return {paper.topLeft() + kept, size};
}

Table TableOf(const StripModel& model, const StripLayers& layers, const StripReadout& readout) {
    const int notice = model.View.Following() ? 0 : NoticeRoom;
    return LayOutTable(readout, layers.Layout().Paper.height() - notice);
}

QRect BoxOf(const Table& table, const StripModel& model, const StripLayers& layers) {
    const QRect& paper = layers.Layout().Paper;
    return model.Cursors.TableAt ? WhereItWasPut(paper, table.Size, *model.Cursors.TableAt)
                                 : BesideCursors(paper, table.Size, CursorColumns(model, layers));
}

} // namespace

QRect StripReadoutBox(const StripModel& model, const StripLayers& layers) {
    return model.Cursors.Any() ? BoxOf(TableOf(model, layers, ReadOut(model)), model, layers)
                               : QRect();
}

void PaintStripOverlay(QPainter& painter, const StripModel& model, const StripLayers& layers) {
    const QRect& paper = layers.Layout().Paper;
    if (model.View.Following() && !model.Cursors.Any()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(paper, Qt::IntersectClip);
    for (const int cursor : {1 - model.Cursors.Active, model.Cursors.Active}) {
        if (const auto at = model.Cursors.At[static_cast<std::size_t>(cursor)]) {
            const double x = layers.XOf(model, *at);
            if (x >= paper.left() && x <= paper.right() + 1) {
                PaintCursor(painter, model, layers, cursor, x);
            }
        }
    }
    if (model.Cursors.Any()) {
        const StripReadout readout = ReadOut(model);
        const Table table = TableOf(model, layers, readout);
        PaintTable(painter, model, readout, table, BoxOf(table, model, layers));
    }
    PaintStandstill(painter, model, paper);
    painter.restore();
}

} // namespace tqx
