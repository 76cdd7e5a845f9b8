#include "strip_chart/actions.h"

#include "controls/accessible_control.h"
#include "controls/look.h"
#include "controls/system_dialogs.h"
#include "strip_chart/csv.h"
#include "strip_chart/parts.h"

#include <QBuffer>
#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QGuiApplication>
#include <QMenu>
#include <QSaveFile>
#include <QStringList>
#include <QToolButton>

#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tqx {
namespace {

struct Entry {
    const char* Text;
    std::array<const char*, 2> Keys;
    bool Checkable = false;
    bool EndsGroup = false;
};

/// In the order of strip::Command, which is the order of the menu.
constexpr std::array<Entry, static_cast<std::size_t>(strip::Command::Count)> Entries = {{
    {QT_TRANSLATE_NOOP("StripChart", "&Freeze the picture"), {"Space"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "Back to &live"), {"Home"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Whole run"), {"W"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom time &in"), {"+", "="}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom time &out"), {"-"}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom values in"), {"Ctrl++", "Ctrl+="}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom values out"), {"Ctrl+-"}},
    {QT_TRANSLATE_NOOP("StripChart", "Fi&t the values on view"), {"F"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "Cursor &1"), {"1"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "Cursor &2"), {"2"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Remove the cursors"), {"Esc"}},
    {QT_TRANSLATE_NOOP("StripChart", "Copy what the cursors read"), {"Ctrl+Shift+C"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Hide or show the trace picked"), {"Return", "Enter"}},
    {QT_TRANSLATE_NOOP("StripChart", "O&nly the trace picked"), {"O"}},
    {QT_TRANSLATE_NOOP("StripChart", "Show &all traces"), {"A"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Copy the picture"), {"Ctrl+C"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Save the picture..."), {"Ctrl+S"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Export the samples on view..."), {"Ctrl+E"}},
    {QT_TRANSLATE_NOOP("StripChart", "Ex&port all samples..."), {"Ctrl+Shift+E"}},
}};

} // namespace

strip::Commands::Commands(QWidget& chart) {
    for (std::size_t i = 0; i < Entries.size(); ++i) {
        auto* action =
            new QAction(QCoreApplication::translate("StripChart", Entries[i].Text), &chart);
        QList<QKeySequence> keys;
        for (const char* key : Entries[i].Keys) {
            if (key != nullptr) {
                keys.append(QKeySequence(QLatin1String(key)));
            }
        }
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setCheckable(Entries[i].Checkable);
        chart.addAction(action);
        m_actions[i] = action;
    }
}

void strip::Commands::FillMenu(QMenu& menu) const {
    for (std::size_t i = 0; i < Entries.size(); ++i) {
        menu.addAction(m_actions[i]);
        if (Entries[i].EndsGroup) {
            menu.addSeparator();
        }
    }
}

QString strip::Commands::Keys() const {
    QString text = QCoreApplication::translate(
        "StripChart", "Left and Right move the cursor (with Shift ten steps) or the view; "
                      "Page Up and Page Down turn a page of time; Ctrl+Up and Ctrl+Down move the "
                      "values; Up and Down pick a legend line.");
    for (const QAction* action : m_actions) {
        text += QLatin1Char('\n') + action->shortcut().toString(QKeySequence::NativeText) +
                QStringLiteral(": ") + action->text().remove(QLatin1Char('&'));
    }
    return text;
}

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
    parts.MenuButton = TitleButton(*this, QStringLiteral("\u2026"), tr("All chart commands"));
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
    const auto on = [this](strip::Command command, auto does) {
        connect(&m_parts->Commands[command], &QAction::triggered, this, [this, does] {
            does();
            ShowChange();
        });
    };
    strip::Model& model = m_parts->Model;
    strip::Hand& hand = m_parts->Hand;
    on(strip::Command::Freeze, [this] { Freeze(!Frozen()); });
    on(strip::Command::Live, [this] { ShowLive(); });
    on(strip::Command::WholeRun, [this] { ShowWholeRun(); });
    on(strip::Command::ZoomIn, [&hand] { hand.ZoomTime(1); });
    on(strip::Command::ZoomOut, [&hand] { hand.ZoomTime(-1); });
    on(strip::Command::ZoomValuesIn, [&hand] { hand.ZoomValues(1); });
    on(strip::Command::ZoomValuesOut, [&hand] { hand.ZoomValues(-1); });
    on(strip::Command::FitValues, [&hand] { hand.FitValues(); });
    on(strip::Command::FirstCursor, [&hand] { hand.ToggleCursor(0); });
    on(strip::Command::SecondCursor, [&hand] { hand.ToggleCursor(1); });
    on(strip::Command::NoCursors, [&model] { model.Cursors = {}; });
    on(strip::Command::ToggleTrace, [&model] { model.ToggleTrace(model.LegendPick); });
    on(strip::Command::OnlyTrace, [&model] { model.ShowOnly(model.LegendPick); });
    on(strip::Command::AllTraces, [&model] { model.ShowAll(); });
}

/// Shows what the user's hand changed, and what can be done next.
void StripChart::ShowChange() {
    const strip::Model& model = m_parts->Model;
    const strip::Commands& commands = m_parts->Commands;
    const bool picked = model.LegendPick >= 0;
    commands[strip::Command::Freeze].setChecked(Frozen());
    commands[strip::Command::FirstCursor].setChecked(model.Cursors.At[0].has_value());
    commands[strip::Command::SecondCursor].setChecked(model.Cursors.At[1].has_value());
    commands[strip::Command::NoCursors].setEnabled(model.Cursors.Any());
    commands[strip::Command::CopyReadout].setEnabled(model.Cursors.Any());
    commands[strip::Command::ToggleTrace].setEnabled(picked);
    commands[strip::Command::OnlyTrace].setEnabled(picked);
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
    return variable >= 0 && variable < strip::VariableCount && m_parts->Model.Ink(variable).Shown;
}

QString StripChart::Title() const {
    return m_parts->Model.Captions[strip::TitleCaption].Text;
}

QString StripChart::LatestText() const {
    const strip::Model& model = m_parts->Model;
    QStringList values;
    for (int variable = 0; variable < strip::VariableCount; ++variable) {
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
    const strip::Model& model = m_parts->Model;
    QStringList state{strip::StandstillText(model), strip::LegendText(model), ReadoutText()};
    state.removeAll(QString());
    return state.join(QLatin1Char('\n'));
}

QString StripChart::ReadoutText() const {
    return m_parts->Model.Cursors.Any() ? strip::ReadOut(m_parts->Model).Text() : QString();
}

void StripChart::Dialogs(SystemDialogs& dialogs) {
    m_parts->Dialogs = &dialogs;
}

void StripChart::ConnectFileCommands() {
    const strip::Commands& commands = m_parts->Commands;
    connect(&commands[strip::Command::CopyPicture], &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setImage(Picture()); });
    connect(&commands[strip::Command::CopyReadout], &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(ReadoutText()); });
    connect(&commands[strip::Command::SavePicture], &QAction::triggered, this,
            &StripChart::SavePicture);
    connect(&commands[strip::Command::SaveView], &QAction::triggered, this,
            [this] { ExportSamples(false); });
    connect(&commands[strip::Command::SaveAll], &QAction::triggered, this,
            [this] { ExportSamples(true); });
}

QString StripChart::AskFileName(const QString& title, const QString& suffix,
                                const QString& filter) {
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    const QString name = Title().isEmpty() ? tr("Chart") : Title();
    return m_parts->Dialogs->NewFileName(this, title, name + QLatin1Char(' ') + stamp + suffix,
                                         filter);
}

namespace {

/// Writes a file so that one that was there before stays when anything fails. What went wrong in
/// words; empty when all is well.
QString SaveWhole(const QString& name, const QByteArray& content) {
    namespace fs = std::filesystem;
    std::error_code none;
    const fs::file_status status = fs::status(name.toStdString(), none);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return QStringLiteral("%1 could not be saved: it is no ordinary file.").arg(name);
    }
    QSaveFile file(name);
    // A disk that fills up takes a part without a reason; only the next write is given one.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        qint64 taken = 1;
        for (qint64 done = 0; taken > 0 && done < content.size(); done += taken) {
            taken = file.write(content.data() + done, content.size() - done);
        }
        if (taken > 0 && file.commit()) {
            return {};
        }
    }
    return QStringLiteral("%1 could not be saved: %2. An existing file of this name is unchanged.")
        .arg(name, file.errorString());
}

} // namespace

void StripChart::SaveAndTell(const QString& title, const QString& name, const QByteArray& content) {
    const QString trouble = SaveWhole(name, content);
    if (trouble.isEmpty()) {
        m_parts->Dialogs->Message(
            this, SystemDialogs::Icon::None, title,
            QStringLiteral("%1 is saved: %2 bytes.").arg(name).arg(content.size()));
    } else {
        m_parts->Dialogs->Message(this, SystemDialogs::Icon::Exclamation, title, trouble);
    }
}

void StripChart::SavePicture() {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    Picture().save(&buffer, "PNG");
    const QString title = tr("Save the picture");
    const QString name = AskFileName(title, QStringLiteral(".png"), tr("Pictures (*.png)"));
    if (!name.isEmpty()) {
        SaveAndTell(title, name, png);
    }
}

void StripChart::ExportSamples(bool all) {
    const QString title = all ? tr("Export all samples") : tr("Export the samples on view");
    // What was on view when the key was pressed, though samples go on coming under the dialog.
    const strip::Selection selection =
        all ? strip::SelectAll(m_parts->Model) : strip::SelectOnView(m_parts->Model);
    const QString name =
        AskFileName(title, QStringLiteral(".csv"), tr("Comma-separated values (*.csv)"));
    if (!name.isEmpty()) {
        SaveAndTell(title, name, strip::CsvText(m_parts->Model, selection));
    }
}

} // namespace tqx
