#include "strip_chart/drawing.h"

#include "controls/look.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tqx::strip {
namespace {

constexpr int ValueLabelGap = 34;          ///< least distance of two value labels
constexpr int TimeLabelGap = 92;           ///< least distance of two time labels
constexpr int ArrowSize = 8;               ///< of a trace that has left the paper
constexpr std::size_t MostTimeLabels = 64; ///< kept as pictures
constexpr int LeastLegendName = 72;
constexpr int MostLegendName = 180;

QFont TitleFont() {
    return look::WordsFont(look::Size::Section, look::Strong);
}

QFont LabelFont() {
    return look::NumbersFont(look::Size::Fine);
}

QFont Within(QFont font, int lineHeight) {
    if (lineHeight < 16) {
        font.setPixelSize(std::max(lineHeight - 3, 6));
    }
    return font;
}

QFont LegendFont(int lineHeight) {
    return Within(look::WordsFont(look::Size::Note), lineHeight);
}

QFont LegendNumbers(int lineHeight) {
    return Within(LabelFont(), lineHeight);
}

const QString Difference = QStringLiteral("2 \u2212 1");
constexpr int ValueGap = 10; ///< between the columns of a read-out

/// Room for each value of a read-out, and for the widest one that `range` brings with as many
/// decimals: the legend keeps its width while a cursor moves.
int ValueWidth(const Readout& readout, const Range& range) {
    const QFontMetrics metrics(LabelFont());
    int width = readout.Cursors.size() == 2 ? metrics.horizontalAdvance(Difference) : 0;
    int decimals = 0;
    for (const Readout::Line& line : readout.Lines) {
        for (const QString& value : line.Values) {
            width = std::max(width, metrics.horizontalAdvance(value));
            const auto point = value.indexOf(u'.');
            decimals = point < 0 ? decimals : static_cast<int>(value.size() - point - 1);
        }
    }
    for (const double value : {range.Low, range.High, -range.High}) {
        width = std::max(width, metrics.horizontalAdvance(QString::number(value, 'f', decimals)));
    }
    return width + ValueGap;
}

QString HeadingOver(const Readout& readout, std::size_t column) {
    return column < readout.Cursors.size() ? QString::number(readout.Cursors[column] + 1)
                                           : Difference;
}

/// Columns of `width` at the right end of a line.
void DrawValues(QPainter& painter, const QRect& line, int width,
                const std::vector<QString>& values) {
    int right = line.right() + 1 - static_cast<int>(values.size()) * width;
    for (const QString& value : values) {
        painter.drawText(QRect(right, line.top(), width, line.height()),
                         Qt::AlignRight | Qt::AlignVCenter, value);
        right += width;
    }
}

} // namespace

void PaintSwatch(QPainter& painter, const QRectF& swatch, QRgb colour, bool filled) {
    const bool outlined = !filled || ContrastRatio(colour, look::Paper) < LeastContrast;
    painter.setPen(outlined ? QPen(QColor(look::QuietInk), 1) : QPen(Qt::NoPen));
    painter.setBrush(filled ? QBrush(QColor(colour)) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(swatch, 1.5, 1.5);
}

Time Layers::TimeAt(const Model& model, double x) const {
    const Columns columns = model.View.Columns();
    const double column = std::floor((x - m_layout.Paper.left()) * m_pixelRatio);
    return columns.Begin(columns.First + static_cast<std::int64_t>(column) + 1) - 1;
}

double Layers::XOf(const Model& model, Time time) const {
    const Columns columns = model.View.Columns();
    const auto column = static_cast<double>(columns.Of(time) - columns.First);
    return m_layout.Paper.left() + (column + 0.5) / m_pixelRatio;
}

double Layers::ValueAt(const Model& model, double y) const {
    return ValueOf(y - m_layout.Paper.top(), model.View.Values(), m_layout.Paper.height());
}

double Layers::YOf(const Model& model, double value) const {
    return m_layout.Paper.top() + 0.5 + RowOf(value, model.View.Values(), m_layout.Paper.height());
}

/// Room for the widest value that the range may bring, so that the legend keeps its width while a
/// cursor moves.
void Layers::MeasureReadout(TextSizes& sizes) const {
    sizes.ReadoutHeadings = m_readout.Cursors.size() == 2   ? 4
                            : m_readout.Cursors.size() == 1 ? 2
                                                            : 0;
    sizes.ReadoutWidth = static_cast<int>(m_readout.Headings.size()) * m_valueWidth;
    if (m_readout.Headings.empty()) {
        return;
    }
    const int moment =
        QFontMetrics(LabelFont()).horizontalAdvance(QStringLiteral("2 - 1  00 00 00.000"));
    sizes.ReadoutWidth = std::max(sizes.ReadoutWidth, moment - SwatchWidth - sizes.LegendNameWidth);
}

TextSizes Layers::MeasureTexts(const Model& model) const {
    const QFontMetrics labels(LabelFont());
    const QFontMetrics legend(look::WordsFont(look::Size::Note));
    TextSizes sizes{};
    sizes.TitleHeight = std::max(QFontMetrics(TitleFont()).height(), 24);
    sizes.TimeCaptionWidth = QFontMetrics(look::WordsFont(look::Size::Note))
                                 .horizontalAdvance(model.Captions[TimeCaption].Text) +
                             labels.horizontalAdvance(QStringLiteral(" 00 00 00")) + 4;
    sizes.LabelHeight = labels.height();
    sizes.ValueLabelWidth = labels.horizontalAdvance(QStringLiteral("-00.00"));
    for (int variable = 0; variable < LegendLines; ++variable) {
        sizes.LegendNameWidth =
            std::max(sizes.LegendNameWidth, legend.horizontalAdvance(model.Legend(variable)) + 4);
    }
    for (const Readout::Line& line : m_readout.Lines) {
        sizes.LegendNameWidth =
            std::max(sizes.LegendNameWidth, legend.horizontalAdvance(line.Name) + 4);
    }
    sizes.LegendNameWidth = std::clamp(sizes.LegendNameWidth, LeastLegendName, MostLegendName);
    MeasureReadout(sizes);
    return sizes;
}

QRect Layers::OnScreen(const QRect& rect) const {
    const auto pixel = [this](int position) {
        return static_cast<int>(std::lround(position * m_pixelRatio));
    };
    return {QPoint(pixel(rect.left()), pixel(rect.top())),
            QPoint(pixel(rect.right() + 1) - 1, pixel(rect.bottom() + 1) - 1)};
}

bool Layers::LayOut(Model& model, const QSize& size, double pixelRatio, int buttonsWidth) {
    if (Readout readout = model.Cursors.Any() ? ReadOut(model) : Readout{}; readout != m_readout) {
        m_readout = std::move(readout);
        m_stillValid = false;
        const int width = ValueWidth(m_readout, model.View.OuterValues());
        m_valid = m_valid && width == m_valueWidth && m_readout.Headings.size() == m_readoutColumns;
        m_valueWidth = width;
        m_readoutColumns = m_readout.Headings.size();
    }
    if (!m_valid || size != m_size || pixelRatio != m_pixelRatio) {
        m_valid = true;
        m_size = size;
        m_pixelRatio = pixelRatio;
        m_layout = strip::LayOut(size, MeasureTexts(model), buttonsWidth);
        m_paperOnScreen = OnScreen(m_layout.Paper);
        m_paper.Resize(m_paperOnScreen.size());
        model.View.ColumnCount(m_paperOnScreen.width());
        m_stillValid = false;
        m_timeLabels.clear();
    }
    if (model.Inks != m_stillInks) {
        m_stillInks = model.Inks;
        m_stillValid = false;
        m_paper.Invalidate();
    }
    if (m_stillValid && model.View.Values() == m_stillValues && model.LegendPick == m_stillPick) {
        return false;
    }
    m_stillValues = model.View.Values();
    m_stillPick = model.LegendPick;
    m_valueStep = ValueStep(m_stillValues.Span(), m_layout.Paper.height(), ValueLabelGap);
    DrawStill(model);
    m_stillValid = true;
    return true;
}

QRegion Layers::DrawFrame(const Model& model) {
    const Time step = TimeStep(model.View.Columns().Width, TimeLabelGap * m_pixelRatio);
    if (step != m_timeStep || m_timeLabels.size() > MostTimeLabels) {
        m_timeStep = step;
        m_timeLabels.clear();
    }
    PaperSetup setup;
    setup.View = model.View;
    setup.Inks = model.Inks;
    setup.Wall = &model.Wall;
    setup.Zone = &model.Zone;
    setup.TimeStep = m_timeStep;
    setup.ValueStep = m_valueStep;
    setup.PixelRatio = m_pixelRatio;
    const Paper::Change change = m_paper.Draw(model.History, setup);
    QRegion changed;
    if (!change.Empty()) {
        const double left = m_layout.Paper.left();
        const int begin = static_cast<int>(std::floor(left + change.Begin / m_pixelRatio)) - 1;
        const int end = static_cast<int>(std::ceil(left + change.End / m_pixelRatio)) + 1;
        changed = QRect(begin, m_layout.Paper.top(), end - begin, m_layout.Paper.height())
                      .intersected(m_layout.Paper);
        if (change.End - change.Begin == m_paper.Size().width()) {
            changed += m_layout.TimeLabels;
        }
    }
    const OffScale offScale = FindOffScale(model);
    if (offScale != m_offScale) {
        m_offScale = offScale;
        changed += m_layout.OffScale;
    }
    const std::int64_t second = model.Wall.At(model.History.Newest()) / Second;
    if (second != m_shownSecond) {
        m_shownSecond = second;
        changed += m_layout.TimeCaption;
    }
    return changed;
}

void Layers::DrawStill(const Model& model) {
    m_still = QImage((QSizeF(m_size) * m_pixelRatio).toSize(), QImage::Format_RGB32);
    m_still.fill(look::Paper);
    QPainter painter(&m_still);
    painter.scale(m_pixelRatio, m_pixelRatio);
    painter.setRenderHint(QPainter::Antialiasing);

    painter.setFont(TitleFont());
    painter.setPen(QColor(look::PaperInk));
    painter.drawText(
        m_layout.Title, Qt::AlignLeft | Qt::AlignVCenter,
        QFontMetrics(painter.font())
            .elidedText(model.Captions[TitleCaption].Text, Qt::ElideRight, m_layout.Title.width()));

    painter.setFont(LabelFont());
    painter.setPen(QColor(look::QuietInk));
    const QRect& paper = m_layout.Paper;
    const int decimals = Decimals(m_valueStep);
    for (const double tick : ValueTicks(m_stillValues, m_valueStep)) {
        const int row =
            paper.top() + static_cast<int>(std::lround(RowOf(tick, m_stillValues, paper.height())));
        const QRect label(m_layout.ValueLabels.left(), row - 10, m_layout.ValueLabels.width(), 20);
        const double shown = std::abs(tick) < m_valueStep / 2 ? 0.0 : tick;
        painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(shown, 'f', decimals));
    }
    if (!m_layout.Unit.intersects(m_layout.TimeCaption)) {
        painter.drawText(m_layout.Unit, Qt::AlignRight | Qt::AlignVCenter, model.Unit);
    }
    DrawReadoutHeadings(painter);
    DrawLegend(painter, model);

    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QColor(look::Rule), 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(paper).adjusted(-1, -1, 0, 0));
}

/// Names the cursors' moments, and the columns beneath by the cursors' numbers.
void Layers::DrawReadoutHeadings(QPainter& painter) const {
    painter.setFont(LegendNumbers(m_layout.LegendLineHeight));
    painter.setPen(QColor(look::QuietInk));
    QRect line = m_layout.ReadoutHeadings;
    line.setHeight(m_layout.LegendLineHeight);
    for (std::size_t i = 0; i < m_readout.Headings.size(); ++i) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, HeadingOver(m_readout, i));
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, m_readout.Headings[i]);
        line.translate(0, line.height());
    }
    std::vector<QString> columns;
    for (std::size_t i = 0; i < m_readout.Headings.size(); ++i) {
        columns.push_back(HeadingOver(m_readout, i));
    }
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, m_readout.Unit);
    DrawValues(painter, line, m_valueWidth, columns);
}

void Layers::DrawReadout(QPainter& painter, const QRect& line, int variable) const {
    const auto found = std::ranges::find(m_readout.Lines, variable, &Readout::Line::Variable);
    if (found != m_readout.Lines.end()) {
        painter.setFont(LegendNumbers(m_layout.LegendLineHeight));
        DrawValues(painter, line, m_valueWidth, found->Values);
    }
}

void Layers::DrawLegend(QPainter& painter, const Model& model) const {
    for (int variable = 0; variable < LegendLines; ++variable) {
        const QRect line = LegendLine(m_layout, variable);
        const bool shown = model.Ink(variable).Shown;
        const bool read = std::ranges::any_of(m_readout.Lines, [variable](const Readout::Line& of) {
            return of.Variable == variable;
        });
        const QString name = read ? model.Name(variable) : model.Legend(variable);
        if (name.isEmpty()) {
            continue;
        }
        if (variable == model.LegendPick) {
            painter.setPen(QPen(QColor(look::Accent), 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(line).adjusted(-3.5, 0.5, 0.5, -0.5), 3, 3);
        }
        const bool own = !model.Legend(variable).isEmpty();
        const QRgb colour = own ? model.LegendCaption(variable).Colour : model.Ink(variable).Colour;
        const QRectF swatch(line.left() + 0.5, line.center().y() - 2, SwatchWidth - 1, 5);
        PaintSwatch(painter, swatch, colour, shown);
        painter.setPen(QColor(shown && own ? look::PaperInk : look::QuietInk));
        painter.setFont(LegendFont(m_layout.LegendLineHeight));
        const int values = static_cast<int>(m_readout.Headings.size()) * m_valueWidth;
        const QRect text = line.adjusted(SwatchWidth + 8, 0, -values, 0);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(name, Qt::ElideRight, text.width()));
        DrawReadout(painter, line, variable);
    }
}

void Layers::Paint(QPainter& painter, const QRegion& region, const Model& model) const {
    painter.save();
    painter.scale(1 / m_pixelRatio, 1 / m_pixelRatio);
    for (const QRect& rect : region) {
        const QRect part = OnScreen(rect);
        if (!m_paperOnScreen.contains(part)) {
            painter.drawImage(part.topLeft(), m_still, part);
        }
        m_paper.CopyTo(painter, m_paperOnScreen.topLeft(), part);
    }
    painter.restore();
    if (region.intersects(m_layout.TimeLabels)) {
        PaintTimes(painter, model);
    }
    if (region.intersects(m_layout.OffScale)) {
        PaintOffScale(painter, model);
    }
    if (region.intersects(m_layout.TimeCaption) && !model.History.Empty()) {
        painter.setPen(QColor(look::QuietInk));
        painter.setFont(LabelFont());
        painter.drawText(m_layout.TimeCaption, Qt::AlignRight | Qt::AlignVCenter,
                         ClockText(model, model.History.Newest()));
        painter.setFont(look::WordsFont(look::Size::Note));
        painter.drawText(m_layout.TimeCaption, Qt::AlignLeft | Qt::AlignVCenter,
                         model.Captions[TimeCaption].Text);
    }
}

void Layers::PaintDate(QPainter& painter, const Model& model) const {
    if (!model.Wall.Known()) {
        return;
    }
    painter.setPen(QColor(look::QuietInk));
    painter.setFont(LabelFont());
    painter.drawText(m_layout.Buttons, Qt::AlignRight | Qt::AlignVCenter,
                     DateText(model, std::min(model.View.End(), model.History.Newest())));
}

void Layers::PaintTimes(QPainter& painter, const Model& model) const {
    const Columns columns = model.View.Columns();
    painter.save();
    painter.scale(1 / m_pixelRatio, 1 / m_pixelRatio);
    for (const Time tick :
         TimeTicks(model.View.Begin(), model.View.End(), m_timeStep, model.Wall, model.Zone)) {
        const auto column = static_cast<int>(columns.Of(tick) - columns.First);
        const QImage& label = TimeLabel(model, tick);
        painter.drawImage(m_paperOnScreen.left() + column - label.width() / 2,
                          OnScreen(m_layout.TimeLabels).top(), label);
    }
    painter.restore();
}

/// An arrow in the colour of each trace that has left the paper, at the edge that it left by.
void Layers::PaintOffScale(QPainter& painter, const Model& model) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect& room = m_layout.OffScale;
    const double middle = room.left() + room.width() / 2.0;
    for (const bool above : {true, false}) {
        double y = above ? room.top() + 2 : room.bottom() - 1;
        const int step = above ? ArrowSize + 2 : -ArrowSize - 2;
        for (int variable = 0; variable < VariableCount; ++variable) {
            if (((above ? m_offScale.Above : m_offScale.Below) >> variable & 1U) == 0) {
                continue;
            }
            const Ink& ink = model.Ink(variable);
            const double base = y + (above ? ArrowSize : -ArrowSize);
            const std::array points = {QPointF(middle, y), QPointF(middle - ArrowSize / 2.0, base),
                                       QPointF(middle + ArrowSize / 2.0, base)};
            painter.setPen(ink.Cased ? QPen(QColor(look::QuietInk), 1) : QPen(Qt::NoPen));
            painter.setBrush(QColor(ink.Colour));
            painter.drawPolygon(points.data(), static_cast<int>(points.size()));
            y += step;
        }
    }
    painter.restore();
}

/// A label as a picture: it moves on with the paper far more often than it changes.
const QImage& Layers::TimeLabel(const Model& model, Time tick) const {
    QImage& label = m_timeLabels[tick];
    if (label.isNull()) {
        const QString text = ClockText(model, tick);
        const QSize size(QFontMetrics(LabelFont()).horizontalAdvance(text) + 4,
                         m_layout.TimeLabels.height());
        label = QImage((QSizeF(size) * m_pixelRatio).toSize(), QImage::Format_RGB32);
        label.fill(look::Paper);
        QPainter painter(&label);
        painter.scale(m_pixelRatio, m_pixelRatio);
        painter.setFont(LabelFont());
        painter.setPen(QColor(look::QuietInk));
        painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter, text);
    }
    return label;
}

namespace {

constexpr int Padding = 8;
constexpr double DotRadius = 2.5;

void PaintDots(QPainter& painter, const Model& model, const Layers& layers, double x, Time moment) {
    painter.setPen(QPen(QColor(look::Paper), 1));
    for (int variable = 0; variable < VariableCount; ++variable) {
        const Ink& ink = model.Ink(variable);
        const auto reading = model.History.Trace(variable).ReadAt(moment);
        if (!ink.Shown || !reading || moment - reading->Time > LongestJoin) {
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

void PaintCursor(QPainter& painter, const Model& model, const Layers& layers, int cursor,
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

void PaintStandstill(QPainter& painter, const Model& model, const QRect& paper) {
    const QString text = StandstillText(model);
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

} // namespace

void PaintOverlay(QPainter& painter, const Model& model, const Layers& layers) {
    const QRect& paper = layers.Layout().Paper;
    if (model.View.Following() && !model.Stopped && !model.Cursors.Any()) {
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
    PaintStandstill(painter, model, paper);
    painter.restore();
}

} // namespace tqx::strip
