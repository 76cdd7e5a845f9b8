#include "controls/accessible_control.h"
#include "controls/look.h"
#include "strip_chart/parts.h"
#include "strip_chart/readout.h"

#include <QMenu>
#include <QStringList>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace tqx {
namespace {

QToolButton* TitleButton(StripChart& chart, const QString& text, const QString& tip) {
    auto* button = new QToolButton(&chart);
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
    button->setFont(look::WordsFont(look::Size::Note));
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

void StripChart::AddButtons() {
    Parts& parts = *m_parts;
    parts.FreezeButton =
        TitleButton(*this, tr("Freeze"), tr("Hold the picture; no sample is lost (Space)"));
    parts.FreezeButton->setObjectName(QStringLiteral("FreezeButton"));
    parts.FreezeButton->setCheckable(true);
    connect(parts.FreezeButton, &QToolButton::clicked, this, &StripChart::Freeze);
    parts.LiveButton =
        TitleButton(*this, tr("Live"), tr("Back to the last 60 s in the starting range (Home)"));
    parts.LiveButton->setObjectName(QStringLiteral("LiveButton"));
    connect(parts.LiveButton, &QToolButton::clicked, this, &StripChart::ShowLive);
    parts.MenuButton =
        TitleButton(*this, QStringLiteral("\u2026"), tr("All that the chart can do"));
    parts.MenuButton->setObjectName(QStringLiteral("ChartMenuButton"));
    parts.MenuButton->setAccessibleName(tr("Chart menu"));
    parts.MenuButton->setPopupMode(QToolButton::InstantPopup);
    parts.MenuButton->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    auto* menu = new QMenu(parts.MenuButton);
    parts.Commands.FillMenu(*menu);
    parts.MenuButton->setMenu(menu);
}

void StripChart::PlaceButtons() {
    const std::array buttons = {m_parts->FreezeButton, m_parts->LiveButton, m_parts->MenuButton};
    int width = -look::Grid;
    for (const QToolButton* button : buttons) {
        width += look::Grid + button->sizeHint().width();
    }
    m_parts->Layers.LayOut(m_parts->Model, size(), devicePixelRatioF(), width);
    const QRect room = m_parts->Layers.Layout().Buttons;
    int x = room.left();
    for (QToolButton* button : buttons) {
        button->setGeometry(x, room.top(), button->sizeHint().width(), room.height());
        x += look::Grid + button->width();
    }
}

void StripChart::ConnectCommands() {
    const auto on = [this](StripCommand command, auto does) {
        connect(&m_parts->Commands[command], &QAction::triggered, this, [this, does] {
            does();
            ShowChange();
        });
    };
    StripModel& model = m_parts->Model;
    StripHand& hand = m_parts->Hand;
    on(StripCommand::Freeze, [this] { Freeze(!Frozen()); });
    on(StripCommand::Live, [this] { ShowLive(); });
    on(StripCommand::WholeRun, [this] { ShowWholeRun(); });
    on(StripCommand::ZoomIn, [&hand] { hand.ZoomTime(1); });
    on(StripCommand::ZoomOut, [&hand] { hand.ZoomTime(-1); });
    on(StripCommand::ZoomValuesIn, [&hand] { hand.ZoomValues(1); });
    on(StripCommand::ZoomValuesOut, [&hand] { hand.ZoomValues(-1); });
    on(StripCommand::FirstCursor, [&hand] { hand.ToggleCursor(0); });
    on(StripCommand::SecondCursor, [&hand] { hand.ToggleCursor(1); });
    on(StripCommand::NoCursors, [&model] { model.Cursors = {}; });
    on(StripCommand::ToggleTrace, [&model] { model.ToggleTrace(model.LegendPick); });
    on(StripCommand::OnlyTrace, [&model] { model.ShowOnly(model.LegendPick); });
    on(StripCommand::AllTraces, [&model] { model.ShowAll(); });
}

/// Shows what the user's hand changed, and what can be done next.
void StripChart::ShowChange() {
    const StripModel& model = m_parts->Model;
    const StripCommands& commands = m_parts->Commands;
    const bool picked = model.LegendPick >= 0;
    commands[StripCommand::Freeze].setChecked(Frozen());
    commands[StripCommand::FirstCursor].setChecked(model.Cursors.At[0].has_value());
    commands[StripCommand::SecondCursor].setChecked(model.Cursors.At[1].has_value());
    commands[StripCommand::NoCursors].setEnabled(model.Cursors.Any());
    commands[StripCommand::CopyReadout].setEnabled(model.Cursors.Any());
    commands[StripCommand::ToggleTrace].setEnabled(picked);
    commands[StripCommand::OnlyTrace].setEnabled(picked);
    m_parts->FreezeButton->setChecked(Frozen());
    m_parts->LiveButton->setEnabled(!model.View.Default());
    TellState();
    update();
}

/// Tells screen readers what the user's hand changed. Samples are never told: they would not stop.
void StripChart::TellState() {
    if (!QAccessible::isActive()) {
        return;
    }
    QString state = StateText();
    if (state != m_parts->ToldState) {
        m_parts->ToldState = std::move(state);
        TellScreenReaders(*this, QAccessible::DescriptionChanged);
    }
}

void StripChart::Freeze(bool frozen) {
    m_parts->Model.View.Freeze(frozen);
    ShowChange();
}

bool StripChart::Frozen() const {
    return m_parts->Model.View.Frozen();
}

void StripChart::ShowLive() {
    m_parts->Model.View.Live();
    ShowChange();
}

void StripChart::ShowWholeRun() {
    m_parts->Model.View.ShowWholeRun();
    ShowChange();
}

bool StripChart::Following() const {
    return m_parts->Model.View.Following();
}

std::chrono::nanoseconds StripChart::TimeOnView() const {
    return std::chrono::nanoseconds(m_parts->Model.View.Span());
}

double StripChart::LowOnView() const {
    return m_parts->Model.View.Values().Low;
}

double StripChart::HighOnView() const {
    return m_parts->Model.View.Values().High;
}

bool StripChart::TraceShown(int variable) const {
    return variable >= 0 && variable < StripVariableCount && m_parts->Model.Ink(variable).Shown;
}

QString StripChart::Title() const {
    return m_parts->Model.Captions[TitleCaption].Text;
}

QString StripChart::LatestText() const {
    const StripModel& model = m_parts->Model;
    QStringList values;
    for (int variable = 0; variable < StripVariableCount; ++variable) {
        if (!model.Ink(variable).Shown || !model.HasSamples(variable)) {
            continue;
        }
        const double value = model.History.Trace(variable).Raw().Newest().Value;
        values.append(model.Name(variable) + QLatin1Char(' ') +
                      (std::isnan(value) ? tr("nothing") : QString::number(value, 'g', 6)));
    }
    return values.join(QStringLiteral(", "));
}

QString StripChart::StateText() const {
    const StripModel& model = m_parts->Model;
    QStringList state{StripStandstillText(model), StripLegendText(model), ReadoutText()};
    state.removeAll(QString());
    return state.join(QLatin1Char('\n'));
}

QString StripChart::ReadoutText() const {
    return m_parts->Model.Cursors.Any() ? ReadOut(m_parts->Model).Text() : QString();
}

} // namespace tqx
