#include "controls/strip_chart.h"

#include "controls/accessible_control.h"
#include "controls/look.h"
#include "strip_chart/parts.h"

#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QDateTime>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

namespace tqx {
namespace {

constexpr int FrameInterval = 16; // ms
constexpr int FocusRing = 2;      ///< width, along the chart's edge

/// A chart to a screen reader: its title, the latest values, and what the user's hand did to it.
class AccessibleStripChart : public QAccessibleWidget {
public:
    explicit AccessibleStripChart(StripChart& chart);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    StripChart& m_chart;
};

AccessibleStripChart::AccessibleStripChart(StripChart& chart)
    : QAccessibleWidget(&chart, QAccessible::Chart)
    , m_chart(chart) {}

QString AccessibleStripChart::text(QAccessible::Text kind) const {
    switch (kind) {
    case QAccessible::Name:
        return m_chart.Title().isEmpty() ? QAccessibleWidget::text(kind)
                                         : StripChart::tr("Strip chart: %1").arg(m_chart.Title());
    case QAccessible::Value:
        return m_chart.LatestText();
    case QAccessible::Description:
        return QStringList{m_chart.StateText(), m_chart.LatestText()}
            .join(QLatin1Char('\n'))
            .trimmed();
    default:
        return QAccessibleWidget::text(kind);
    }
}

/// Pressing a chart freezes it or lets it go on.
QStringList AccessibleStripChart::actionNames() const {
    return {pressAction(), setFocusAction()};
}

void AccessibleStripChart::doAction(const QString& action) {
    if (action == pressAction()) {
        m_chart.Freeze(!m_chart.Frozen());
    } else {
        QAccessibleWidget::doAction(action);
    }
}

strip::Time Nanoseconds(std::chrono::system_clock::time_point moment) {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(moment.time_since_epoch()).count();
}

/// The offset of local time. The machine is asked once for every quarter of an hour: that is a look
/// into the file system, and clocks are put forward and back on the quarter.
strip::Zone ZoneOfMachine() {
    return [quarter = strip::Time{-1}, offset = 0](strip::Time wall) mutable {
        constexpr strip::Time Quarter = 900 * strip::Second;
        if (wall / Quarter != quarter) {
            quarter = wall / Quarter;
            offset =
                QDateTime::fromMSecsSinceEpoch(quarter * (Quarter / 1'000'000)).offsetFromUtc();
        }
        return offset;
    };
}

} // namespace

strip::Clock strip::Clock::Machine() {
    return {[] {
                return std::chrono::duration_cast<std::chrono::nanoseconds>(
                    std::chrono::steady_clock::now().time_since_epoch());
            },
            [] { return std::chrono::system_clock::now(); }};
}

void StripChart::Parts::NoteWall() {
    const strip::Time now = Model.History.Newest();
    if (!Model.Wall.Known() || now - WallNotedAt >= strip::Second) {
        const strip::Time steady = Clock.Steady().count() - Model.History.Origin();
        if (Model.Wall.Note(now, Nanoseconds(Clock.Wall()) - (steady - now))) {
            Layers.InvalidatePaper();
        }
        WallNotedAt = now;
    }
}

StripChart::StripChart(QWidget* parent)
    : QWidget(parent)
    , m_parts(std::make_unique<Parts>(*this)) {
    DescribeToScreenReaders<StripChart, AccessibleStripChart>();
    setObjectName(QStringLiteral("MainStripChart"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Strip chart"));
    setWhatsThis(m_parts->Commands.Keys());
    strip::Model& model = m_parts->Model;
    model.Zone = ZoneOfMachine();
    model.Captions.fill({QString(), 0xFF000000});
    model.Captions[strip::TimeCaption].Text = QStringLiteral("Time=");
    for (int variable = 0; variable < strip::LegendLines; ++variable) {
        model.LegendCaption(variable).Colour = model.Ink(variable).Colour;
    }
    AddButtons();
    ConnectCommands();
    ConnectFileCommands();
    BoundValues();
}

StripChart::~StripChart() = default;

void StripChart::AddStripPoint(std::int16_t variable, double value) {
    Parts& parts = *m_parts;
    parts.Model.History.Add(variable, parts.Clock.Steady().count(), value);
    if (!parts.NewSamples) {
        parts.NewSamples = true;
        if (!parts.Frames.isActive()) {
            parts.Frames.start(FrameInterval, Qt::PreciseTimer, this);
        }
    }
}

void StripChart::ClearStrip() {
    strip::Model& model = m_parts->Model;
    model.History.Clear();
    model.Wall.Clear();
    model.View.Newest(0);
    model.View.Live();
    model.ShowAll();
    model.Cursors = {};
    model.LegendPick = -1;
    m_parts->Layers.InvalidatePaper();
    ShowChange();
}

QSize StripChart::sizeHint() const {
    return {720, 440};
}

QSize StripChart::minimumSizeHint() const {
    return {360, 220};
}

int StripChart::StripSetting24() const {
    return m_parts->StripSetting24;
}

void StripChart::StripSetting24(int value) {
    m_parts->StripSetting24 = value;
}

void StripChart::BoundValues() {
    const Parts& parts = *m_parts;
    m_parts->Model.View.Values({parts.YLow, parts.YHigh}, {parts.YFloor, parts.YCeiling});
    ShowChange();
}

double StripChart::YFloor() const {
    return m_parts->YFloor;
}

void StripChart::YFloor(double value) {
    m_parts->YFloor = value;
    BoundValues();
}

double StripChart::YLow() const {
    return m_parts->YLow;
}

void StripChart::YLow(double value) {
    m_parts->YLow = value;
    BoundValues();
}

double StripChart::YCeiling() const {
    return m_parts->YCeiling;
}

void StripChart::YCeiling(double value) {
    m_parts->YCeiling = value;
    BoundValues();
}

double StripChart::YHigh() const {
    return m_parts->YHigh;
}

void StripChart::YHigh(double value) {
    m_parts->YHigh = value;
    BoundValues();
}

int StripChart::CaptionIndex() const {
    return m_parts->CaptionIndex;
}

void StripChart::CaptionIndex(int index) {
    m_parts->CaptionIndex = index;
}

QString StripChart::Caption() const {
    const strip::Caption* caption = m_parts->AddressedCaption();
    return caption != nullptr ? caption->Text : QString();
}

void StripChart::Caption(const QString& text) {
    strip::Caption* caption = m_parts->AddressedCaption();
    if (caption == nullptr || m_parts->CaptionIndex == strip::TimeCaption ||
        caption->Text == text) {
        return;
    }
    caption->Text = text;
    m_parts->Layers.Invalidate();
    update();
    if (m_parts->CaptionIndex == strip::TitleCaption) {
        TellScreenReaders(*this, QAccessible::NameChanged);
    }
}

std::uint32_t StripChart::CaptionColor() const {
    const strip::Caption* caption = m_parts->AddressedCaption();
    return caption != nullptr ? strip::ToBgr(caption->Colour) : 0;
}

void StripChart::CaptionColor(std::uint32_t colour) {
    strip::Caption* caption = m_parts->AddressedCaption();
    if (caption == nullptr || caption->Colour == strip::FromBgr(colour)) {
        return;
    }
    caption->Colour = strip::FromBgr(colour);
    m_parts->Layers.Invalidate();
    update();
}

int StripChart::VariableIndex() const {
    return m_parts->VariableIndex;
}

void StripChart::VariableIndex(int index) {
    m_parts->VariableIndex = index;
}

std::uint32_t StripChart::VariableColor() const {
    const int index = m_parts->VariableIndex;
    const bool any = index >= 0 && index < strip::VariableCount;
    return any ? strip::ToBgr(m_parts->Model.Ink(index).Colour) : 0;
}

void StripChart::NameVariable(int variable, const QString& name) {
    if (variable >= 0 && variable < strip::VariableCount) {
        m_parts->Model.Names[static_cast<std::size_t>(variable)] = name;
        update();
    }
}

void StripChart::Unit(const QString& unit) {
    if (m_parts->Model.Unit != unit) {
        m_parts->Model.Unit = unit;
        m_parts->Layers.Invalidate();
        update();
    }
}

void StripChart::Stopped(bool stopped) {
    m_parts->Model.Stopped = stopped;
    ShowChange();
}

void StripChart::Clock(strip::Clock clock) {
    m_parts->Clock = std::move(clock);
    ClearStrip();
}

void StripChart::DrawFrame() {
    Parts& parts = *m_parts;
    parts.NewSamples = false;
    strip::Model& model = parts.Model;
    if (model.History.Empty()) {
        return;
    }
    parts.NoteWall();
    model.View.Newest(model.History.Newest());
    if (!isVisible()) {
        return;
    }
    if (Prepare()) {
        update();
    }
    // One by one: pictures are copied fast only where a single rectangle is painted.
    for (const QRect& rect : parts.Layers.DrawFrame(model)) {
        repaint(rect);
    }
}

/// Brings layout and still picture up to date with what is to be shown. Whether the latter changed.
bool StripChart::Prepare() {
    const int buttons = m_parts->Layers.Layout().Buttons.width();
    return m_parts->Layers.LayOut(m_parts->Model, size(), devicePixelRatioF(), buttons);
}

/// Paints `region`. All that has changed since the last frame, in `region` or not.
QRegion StripChart::Paint(QPainter& painter, const QRegion& region) {
    QRegion changed = Prepare() ? QRegion(rect()) : QRegion();
    changed += m_parts->Layers.DrawFrame(m_parts->Model);
    m_parts->Layers.Paint(painter, region, m_parts->Model);
    strip::PaintOverlay(painter, m_parts->Model, m_parts->Layers);
    return changed;
}

QImage StripChart::Picture() {
    const double ratio = devicePixelRatioF();
    QImage picture((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    update(Paint(painter, rect()));
    m_parts->Layers.PaintDate(painter, m_parts->Model);
    return picture;
}

void StripChart::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    update(Paint(painter, event->region()) - event->region());
    const bool touchesEdge = !rect()
                                  .adjusted(FocusRing, FocusRing, -FocusRing, -FocusRing)
                                  .contains(event->region().boundingRect());
    if (hasFocus() && touchesEdge) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(look::Accent), FocusRing));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
}

void StripChart::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_parts->Frames.timerId()) {
        QWidget::timerEvent(event);
    } else if (m_parts->NewSamples) {
        DrawFrame();
    } else {
        m_parts->Frames.stop();
    }
}

void StripChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    PlaceButtons();
    update();
}

void StripChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        m_parts->Layers.Invalidate();
        update();
    }
}

void StripChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void StripChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    m_parts->Model.LegendPick = -1;
    update();
}

void StripChart::keyPressEvent(QKeyEvent* event) {
    if (m_parts->Hand.Key(event->key(), event->modifiers())) {
        ShowChange();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void StripChart::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.Press(event->position());
        ShowChange();
    }
}

void StripChart::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) {
        m_parts->Hand.Move(event->position());
        ShowChange();
    }
    const Qt::CursorShape shape = m_parts->Hand.ShapeAt(event->position());
    if (shape == Qt::ArrowCursor) {
        unsetCursor();
    } else {
        setCursor(shape);
    }
}

void StripChart::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.Release(event->position(), event->modifiers());
        ShowChange();
    }
}

void StripChart::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_parts->Hand.DoubleClick(event->position());
        ShowChange();
    }
}

void StripChart::wheelEvent(QWheelEvent* event) {
    const bool values = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    // Some desktops turn the wheel sideways while Shift is held.
    const QPoint angle = event->angleDelta();
    const double notches = (angle.y() != 0 ? angle.y() : angle.x()) / 120.0;
    if (m_parts->Hand.Wheel(event->position(), notches, values)) {
        event->accept();
        ShowChange();
    } else {
        event->ignore();
    }
}

void StripChart::contextMenuEvent(QContextMenuEvent* event) {
    const int line = strip::LegendAt(m_parts->Layers.Layout(), event->pos());
    if (line >= 0 && !m_parts->Model.Legend(line).isEmpty()) {
        m_parts->Model.LegendPick = line;
        ShowChange();
    }
    QMenu menu(this);
    m_parts->Commands.FillMenu(menu);
    menu.exec(event->globalPos());
}

bool StripChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    auto* help = static_cast<QHelpEvent*>(event);
    const int line = strip::LegendAt(m_parts->Layers.Layout(), help->pos());
    if (line >= 0 && !m_parts->Model.Legend(line).isEmpty()) {
        QToolTip::showText(help->globalPos(),
                           tr("Click to hide or show this trace, with Ctrl to show it alone"),
                           this);
    } else if (const int trace = m_parts->Hand.TraceAt(help->pos()); trace >= 0) {
        QToolTip::showText(help->globalPos(), m_parts->Model.Name(trace), this);
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

} // namespace tqx
