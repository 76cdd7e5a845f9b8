#include "controls/strip_chart.h"

#include "controls/accessible_control.h"
#include "strip_chart/accessible.h"
#include "strip_chart/parts.h"

#include <QDateTime>

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

void StripChart::Parts::NoteWall() {
    const StripTime now = Model.History.Newest();
    if (Model.Wall.Stretches().empty() || now - WallNotedAt >= StripSecond) {
        const StripTime steady = Clock.Steady().count() - Model.History.Origin();
        Model.Wall.Note(now, Nanoseconds(Clock.Wall()) - (steady - now));
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
    StripModel& model = m_parts->Model;
    model.Zone = ZoneOfMachine();
    model.Captions.fill({QString(), 0xFF000000});
    model.Captions[TimeCaption].Text = QStringLiteral("Time=");
    for (int variable = 0; variable < StripLegendLines; ++variable) {
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
    StripModel& model = m_parts->Model;
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
    if (m_parts->CaptionIndex == TitleCaption) {
        TellScreenReaders(*this, QAccessible::NameChanged);
    }
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
    const bool any = index >= 0 && index < StripVariableCount;
    return any ? ToBgr(m_parts->Model.Ink(index).Colour) : 0;
}

void StripChart::NameVariable(int variable, const QString& name) {
    if (variable >= 0 && variable < StripVariableCount) {
        m_parts->Model.Names[static_cast<std::size_t>(variable)] = name;
        update();
    }
}

bool StripChart::Antialiased() const {
    return m_parts->Model.Antialiased;
}

void StripChart::Antialiased(bool smoothed) {
    m_parts->Model.Antialiased = smoothed;
    m_parts->Layers.InvalidatePaper();
    update();
}

void StripChart::Clock(StripClock clock) {
    m_parts->Clock = std::move(clock);
    ClearStrip();
}

} // namespace tqx
