#include "console/channel_tabs.h"

#include "console/channel_rows.h"
#include "console/status_lamps.h"

#include <controls/alarm_lamp.h>
#include <controls/look.h>

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QTabBar>

#include <array>

namespace tqx {
namespace {

struct TabPage {
    MonitorTab Tab;
    const char* Caption;
    /// Index of the tab's note in `Information`.
    int Information;
    const char* Tooltip;
};

constexpr std::array<TabPage, 3> Pages{{
    {MonitorTab::Temp, "Temp", 1, "Temperature channels and their alarms"},
    {MonitorTab::Fans, "Fans", 0, "Fan speeds and their alarms"},
    {MonitorTab::Volt, "Volt", 2, "Voltage inputs, their alarms and the chassis alarm"},
}};

enum Column { LampColumn, RowColumn };

void AddLine(QGridLayout& grid, QWidget& lamp, QWidget& label) {
    const int line = grid.rowCount();
    grid.addWidget(&lamp, line, LampColumn, Qt::AlignCenter);
    grid.addWidget(&label, line, RowColumn);
}

void AddRule(QGridLayout& grid, QWidget* page) {
    auto* const rule = new QFrame(page);
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    QPalette palette = rule->palette();
    palette.setColor(QPalette::Window, QColor(look::DisplayEdge));
    rule->setPalette(palette);
    const int line = grid.rowCount();
    grid.setRowMinimumHeight(line, 2 * look::Grid + 1);
    grid.addWidget(rule, line, LampColumn, 1, 2, Qt::AlignVCenter);
}

void AddInformation(QGridLayout& grid, int index, QWidget* page) {
    auto* const note =
        new QLabel(QStringLiteral("Only available functions will appear here."), page);
    note->setObjectName(QStringLiteral("Information(%1)").arg(index));
    note->setFont(look::WordsFont(8.5));
    note->setWordWrap(true);
    look::SetInk(*note, look::DisplayQuiet);
    const int line = grid.rowCount();
    grid.setRowStretch(line, 1);
    grid.addWidget(note, line + 1, LampColumn, 1, 2);
}

} // namespace

ChannelTabs::ChannelTabs(const ChannelRows& rows, const StatusLamps& lamps, QWidget* parent)
    : QTabWidget(parent) {
    setObjectName(QStringLiteral("BargraphTab"));
    setAccessibleName(tr("Channels"));
    for (const TabPage& page : Pages) {
        const int tab = addTab(NewPage(page.Tab, rows, lamps), QString::fromLatin1(page.Caption));
        setTabToolTip(tab, QString::fromLatin1(page.Tooltip));
    }
}

QWidget* ChannelTabs::NewPage(MonitorTab tab, const ChannelRows& rows, const StatusLamps& lamps) {
    auto* const page = new QWidget;
    look::MakeDisplay(*page);
    auto* const grid = new QGridLayout(page);
    grid->setContentsMargins(2 * look::Grid, 2 * look::Grid, 2 * look::Grid, 2 * look::Grid);
    grid->setSpacing(0);
    grid->setColumnStretch(RowColumn, 1);
    for (int row = 0; row < RowCount; ++row) {
        if (MonitorRows.at(row).Tab == tab) {
            AddLine(*grid, lamps.Lamp(MonitorRows.at(row).Lamp), rows.Row(row));
        }
    }
    if (tab == MonitorTab::Volt) {
        auto* const chassis = new RowLabel(QStringLiteral("CI"), page);
        chassis->setObjectName(QStringLiteral("CITXT"));
        chassis->setAccessibleName(tr("CI, chassis intrusion"));
        chassis->setToolTip(tr("Chassis intrusion: click to clear the alarm"));
        AlarmLamp& lamp = lamps.Lamp(StatusLamps::ChassisLamp);
        AddRule(*grid, page);
        AddLine(*grid, lamp, *chassis);
        connect(chassis, &RowLabel::Clicked, this, &ChannelTabs::ChassisClicked);
        connect(&lamp, &AlarmLamp::Clicked, this, &ChannelTabs::ChassisClicked);
    }
    AddInformation(*grid, Pages.at(static_cast<std::size_t>(tab)).Information, page);
    return page;
}

} // namespace tqx
