#include "control_centre/channel_tabs.h"

#include "control_centre/channel_rows.h"
#include "control_centre/status_lamps.h"

#include <controls/alarm_lamp.h>
#include <controls/look.h>

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QTabBar>

#include <array>
#include <initializer_list>

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

void AddLine(QGridLayout& grid, QWidget& lamp, RowLabel& label) {
    const int line = grid.rowCount();
    lamp.setAccessibleName(QStringLiteral("Alarm of %1").arg(label.text()));
    lamp.setToolTip(lamp.accessibleName());
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
    note->setFont(look::WordsFont(look::Size::Fine));
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
    setAccessibleName("Channels");
    setDocumentMode(true); // the displays need no frame
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
        AddChassisLine(*grid, lamps.Lamp(StatusLamps::ChassisLamp), page);
    }
    AddInformation(*grid, Pages.at(static_cast<std::size_t>(tab)).Information, page);
    return page;
}

void ChannelTabs::AddChassisLine(QGridLayout& grid, AlarmLamp& lamp, QWidget* page) {
    m_chassis = new RowLabel(QStringLiteral("CI"), page);
    m_chassis->setObjectName(QStringLiteral("CITXT"));
    m_chassis->setAccessibleName("CI, chassis intrusion: clear the alarm");
    AddRule(grid, page);
    AddLine(grid, lamp, *m_chassis);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_chassis, &lamp}) {
        widget->setToolTip("Chassis intrusion: click to clear the alarm");
        widget->setCursor(Qt::PointingHandCursor);
    }
    connect(m_chassis, &RowLabel::clicked, this, &ChannelTabs::ChassisClicked);
    connect(&lamp, &AlarmLamp::clicked, this, &ChannelTabs::ChassisClicked);
}

QWidget* ChannelTabs::LastRow() const {
    return m_chassis;
}

} // namespace tqx
