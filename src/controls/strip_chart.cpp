#include "controls/strip_chart.h"

#include "strip_chart_layers.h"

#include <QBasicTimer>
#include <QDateTime>
#include <QFileDialog>
#include <QMessageBox>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>

namespace tqx {
namespace {

constexpr int FrameInterval = 16; // ms

StripTime Nanoseconds(std::chrono::system_clock::time_point moment) {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(moment.time_since_epoch()).count();
}

/// The offset of local time. The machine is asked once for every quarter of an hour: that is a look
/// into the file system, and clocks are put forward and back on the quarter.
StripZone ZoneOfMachine() {
    return [quarter = StripTime{-1}, offset = 0](StripTime wall) mutable {
        constexpr StripTime Quarter = 900 * StripSecond;
        if (wall / Quarter != quarter) {
            quarter = wall / Quarter;
            offset =
                QDateTime::fromMSecsSinceEpoch(quarter * (Quarter / 1'000'000)).offsetFromUtc();
        }
        return offset;
    };
}

} // namespace

StripClock StripClock::Machine() {
    return {[] {
                return std::chrono::duration_cast<std::chrono::nanoseconds>(
                    std::chrono::steady_clock::now().time_since_epoch());
            },
            [] { return std::chrono::system_clock::now(); }};
}

StripDoors StripDoors::Desktop() {
    return {
        [](QWidget* parent, const QString& title, const QString& suggested, const QString& filter) {
            return QFileDialog::getSaveFileName(parent, title, suggested, filter);
        },
        [](QWidget* parent, const QString& title, const QString& text) {
            QMessageBox::warning(parent, title, text);
        }};
}

struct StripChart::Parts {
    StripModel Model;
    StripLayers Layers;
    StripClock Clock = StripClock::Machine();
    StripDoors Doors = StripDoors::Desktop();
    QBasicTimer Frames;
    bool NewSamples = false;
    StripTime WallNotedAt = 0;
    double YFloor = 0;
    double YLow = 0;
    double YCeiling = 100;
    double YHigh = 100;
    int StripSetting24 = 0;
    int CaptionIndex = 0;
    int VariableIndex = 0;

    StripCaption* AddressedCaption() {
        const bool any = CaptionIndex >= 0 && CaptionIndex < StripCaptionCount;
        return any ? &Model.Captions[static_cast<std::size_t>(CaptionIndex)] : nullptr;
    }

    /// Notes what the wall clock says, at most once a second.
    void NoteWall() {
        const StripTime now = Model.History.Newest();
        if (Model.Wall.Stretches().empty() || now - WallNotedAt >= StripSecond) {
            const StripTime steady = Clock.Steady().count() - Model.History.Origin();
            Model.Wall.Note(now, Nanoseconds(Clock.Wall()) - (steady - now));
            WallNotedAt = now;
        }
    }
};

StripChart::StripChart(QWidget* parent)
    : QWidget(parent)
    , m_parts(std::make_unique<Parts>()) {
    setObjectName(QStringLiteral("MainStripChart"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Strip chart"));
    StripModel& model = m_parts->Model;
    model.Zone = ZoneOfMachine();
    model.Captions.fill({QString(), 0xFF000000});
    model.Captions[TimeCaption].Text = QStringLiteral("Time=");
    for (int variable = 0; variable < StripLegendLines; ++variable) {
        model.Captions[static_cast<std::size_t>(FirstLegendCaption + variable)].Colour =
            model.Ink(variable).Colour;
    }
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
    Parts& parts = *m_parts;
    parts.Model.History.Clear();
    parts.Model.Wall.Clear();
    parts.Model.View.Newest(0);
    parts.Model.View.Live();
    for (StripInk& ink : parts.Model.Inks) {
        ink.Shown = true;
    }
    parts.Layers.InvalidateInks();
    update();
}

void StripChart::DrawFrame() {
    Parts& parts = *m_parts;
    parts.NewSamples = false;
    StripModel& model = parts.Model;
    if (model.History.Empty()) {
        return;
    }
    parts.NoteWall();
    model.View.Newest(model.History.Newest());
    if (!isVisible()) {
        return;
    }
    Relayout();
    // One by one: pictures are copied fast only where a single rectangle is painted.
    for (const QRect& rect : parts.Layers.DrawFrame(model)) {
        repaint(rect);
    }
}

void StripChart::ShowLive() {
    m_parts->Model.View.Live();
    update();
}

void StripChart::ShowWholeRun() {
    m_parts->Model.View.ShowWholeRun();
    update();
}

void StripChart::Relayout() {
    m_parts->Layers.LayOut(m_parts->Model, size(), devicePixelRatioF(), 0);
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

void StripChart::paintEvent(QPaintEvent* event) {
    Relayout();
    m_parts->Layers.DrawFrame(m_parts->Model);
    QPainter painter(this);
    m_parts->Layers.Paint(painter, event->region(), m_parts->Model);
}

void StripChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    update();
}

void StripChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        m_parts->Layers.Invalidate();
        update();
    }
}

QImage StripChart::Picture() {
    Relayout();
    m_parts->Layers.DrawFrame(m_parts->Model);
    const double ratio = devicePixelRatioF();
    QImage picture((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    m_parts->Layers.Paint(painter, rect(), m_parts->Model);
    return picture;
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
    update();
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
    const StripCaption* caption = m_parts->AddressedCaption();
    return caption != nullptr ? caption->Text : QString();
}

void StripChart::Caption(const QString& text) {
    StripCaption* caption = m_parts->AddressedCaption();
    if (caption == nullptr || m_parts->CaptionIndex == TimeCaption || caption->Text == text) {
        return;
    }
    caption->Text = text;
    m_parts->Layers.Invalidate();
    update();
}

std::uint32_t StripChart::CaptionColor() const {
    const StripCaption* caption = m_parts->AddressedCaption();
    return caption != nullptr ? ToBgr(caption->Colour) : 0;
}

void StripChart::CaptionColor(std::uint32_t colour) {
    StripCaption* caption = m_parts->AddressedCaption();
    if (caption == nullptr || caption->Colour == FromBgr(colour)) {
        return;
    }
    caption->Colour = FromBgr(colour);
    m_parts->Layers.InvalidateInks();
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
    const bool any = index >= 0 && index < StripVariableCount;
    return any ? ToBgr(m_parts->Model.Ink(index).Colour) : 0;
}

bool StripChart::Antialiased() const {
    return m_parts->Model.Antialiased;
}

void StripChart::Antialiased(bool smoothed) {
    m_parts->Model.Antialiased = smoothed;
    m_parts->Layers.InvalidateInks();
    update();
}

void StripChart::Clock(StripClock clock) {
    m_parts->Clock = std::move(clock);
    ClearStrip();
}

void StripChart::Doors(StripDoors doors) {
    m_parts->Doors = std::move(doors);
}

} // namespace tqx
