#include "control_centre/control_centre.h"

#include "control_centre/channel_tabs.h"
#include "control_centre/gpio_display.h"
#include "control_centre/monitor_rows.h"
#include "control_centre/strip_groups.h"

#include <controls/alarm_lamp.h>
#include <controls/linear_gauge.h>
#include <controls/look.h>
#include <controls/strip_chart.h>
#include <device/bench.h>
#include <device/gpio_lines.h>
#include <device/register_addresses.h>
#include <link/link_new_com_port.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

#include <cstdint>
#include <initializer_list>

namespace tqx {
namespace {

constexpr unsigned EnVExt2 = 1U << 3;  ///< of Config 1: Ain 8 and Ain 9 instead of ExtTemp1
constexpr std::uint8_t StartUp = 0x03; ///< of Config 1

QLabel* NewHeading(const QString& name, const QString& text, QWidget* parent) {
    auto* const heading = new QLabel(text, parent);
    heading->setObjectName(name);
    heading->setFont(look::WordsFont(look::Size::Text, look::Strong));
    return heading;
}

} // namespace

ControlCentre::ControlCentre(Bench& bench, QWidget* parent)
    : QWidget(parent)
    , m_bench(bench)
    , m_gauge(*new LinearGauge(this))
    , m_chart(*new StripChart(this))
    , m_rows(*this, this)
    , m_lamps(bench.Bus, this)
    , m_tabs(*new ChannelTabs(m_rows, m_lamps, this))
    , m_gpio(*new GPIODisplay(bench.Bus, this))
    , m_startStop(*new QPushButton(this))
    , m_channelName(*new QLabel(this))
    , m_timers(m_startStop, this)
    , m_sizes(m_gauge, m_chart, [this](int row) { return m_rows.Visible(row); })
    , m_limits(bench, m_gauge, m_sizes, *this)
    , m_tick(bench, m_gauge, m_chart, m_lamps, *this) {
    setObjectName(QStringLiteral("ControlCentrePanel"));
    m_gauge.setObjectName(QStringLiteral("limits_gauge"));
    m_chart.setObjectName(QStringLiteral("MainStripChart"));
    m_lamps.Lamp(MonitorRows.at(RowWithoutChannel).Lamp).hide();
    LayOut();
    ConnectParts();
}

void ControlCentre::ConnectParts() {
    const LinkFailures& failures = m_bench.Failures;
    for (int row = 0; row < RowCount; ++row) {
        connect(&m_rows.Row(row), &RowLabel::MouseMoved, this, [this, row] { m_rows.Hover(row); });
        connect(&m_rows.Row(row), &RowLabel::clicked, this,
                OnLink(failures, [this, row] { RowClicked(row); }));
    }
    connect(&m_gauge, &LinearGauge::PointerMoved, this,
            OnLink(failures, [this] { m_limits.PointerMoved(); }));
    connect(&m_gauge, &LinearGauge::PointerSettled, this,
            OnLink(failures, [this] { m_limits.PointerSettled(); }));
    connect(&m_tabs, &ChannelTabs::ChassisClicked, this,
            OnLink(failures, [this] { m_lamps.ClearChassisAlarm(); }));
    connect(&m_startStop, &QAbstractButton::toggled, &m_chart,
            [this](bool running) { m_chart.Stopped(!running); });
    connect(&m_gpio, &GPIODisplay::clicked, this, &ControlCentre::GPIOPanelWanted);
    connect(&m_timers.BargraphTimer, &QTimer::timeout, this,
            OnLink(failures, [this] { BargraphTick(); }));
    connect(&m_timers.InterruptTimer, &QTimer::timeout, this,
            OnLink(failures, [this] { InterruptTick(); }));
    connect(&m_timers.GPIOTimer, &QTimer::timeout, this, OnLink(failures, [this] { GPIOTick(); }));
}

void ControlCentre::LayOut() {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(3 * look::Grid, 2 * look::Grid, 3 * look::Grid, 2 * look::Grid);
    grid->setHorizontalSpacing(3 * look::Grid);
    grid->setVerticalSpacing(2 * look::Grid);

    auto* const bargraph = new QVBoxLayout;
    AddBargraph(*bargraph);
    auto* const bottom = new QHBoxLayout;
    AddBottomLine(*bottom);

    grid->addWidget(&m_tabs, 0, 0);
    grid->addLayout(bargraph, 0, 1);
    grid->addWidget(&m_chart, 0, 2);
    grid->addLayout(bottom, 1, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(0, 1);
    OrderTabs();
}

void ControlCentre::OrderTabs() {
    // The channel tabs with their rows come first by themselves.
    QWidget* last = m_tabs.LastRow();
    for (QWidget* next :
         std::initializer_list<QWidget*>{&m_gauge, &m_chart, &m_startStop, &m_rows.Row(0),
                                         &m_rows.Row(1), &m_rows.Row(2), &m_gpio}) {
        setTabOrder(last, next);
        last = next;
    }
}

void ControlCentre::AddBargraph(QVBoxLayout& column) {
    m_channelName.setObjectName(QStringLiteral("ChannelName"));
    m_channelName.setFont(look::NumbersFont(look::Size::Text, look::Strong));
    m_channelName.setToolTip("The channel on the bargraph");

    auto* const line = new QHBoxLayout;
    line->addWidget(NewHeading(QStringLiteral("SSPanel6"), QStringLiteral("Bargraph"), this));
    line->addStretch();
    line->addWidget(&m_channelName);
    auto* const heading = new QWidget(this);
    heading->setLayout(line);
    heading->setFixedHeight(m_tabs.tabBar()->sizeHint().height()); // the displays stand in line
    line->setContentsMargins(0, 0, look::Grid, 0);

    column.setSpacing(0);
    column.addWidget(heading);
    column.addWidget(&m_gauge, 1);
}

void ControlCentre::AddBottomLine(QHBoxLayout& line) {
    m_startStop.setToolTip("Start or stop the monitor");
    m_startStop.setMinimumWidth(22 * look::Grid);

    auto* const groups = new QWidget(this);
    look::MakeDisplay(*groups);
    auto* const headings = new QHBoxLayout(groups);
    headings->setContentsMargins(look::Grid, look::Grid, look::Grid, look::Grid);
    headings->setSpacing(0);
    for (int row = 0; row < FirstTemperatureRow; ++row) {
        headings->addWidget(&m_rows.Row(row));
    }

    line.setSpacing(2 * look::Grid);
    line.addWidget(&m_startStop);
    line.addStretch();
    line.addWidget(NewHeading(QStringLiteral("SSPanel1"), QStringLiteral("Graph"), this));
    line.addWidget(groups);
    line.addStretch();
    line.addWidget(NewHeading(QStringLiteral("SSPanel2"), QStringLiteral("GPIO:"), this));
    line.addWidget(&m_gpio);
}

void ControlCentre::LetGo() {
    m_gauge.LetGo();
}

void ControlCentre::RowClicked(int row) {
    m_rows.Pick(row);
    if (!IsHeadingRow(row)) {
        const QString channel = m_rows.Row(row).text();
        m_channelName.setText(channel);
        m_gauge.setAccessibleName(QStringLiteral("Bargraph of %1").arg(channel));
    }
    m_limits.LoadChannelLimits(row);
    if (!m_timers.VisStart()) {
        m_timers.VisStartClicked();
    }
    StartMonitorTimers();
}

void ControlCentre::SelectRow(int row) {
    RowClicked(row);
    m_rows.Row(row).ForeColor(RowColour::SelectedAway);
}

void ControlCentre::SetUpControlCentre() {
    m_tabs.setCurrentIndex(static_cast<int>(MonitorTab::Temp));
    SelectRow(FirstTemperatureRow);
    SelectRow(TempGroup);
    StopMonitorTimers();
    WriteAt(m_bench.Bus, reg::Config1, StartUp);
    SetUpDisplay();
    m_limits.ShowLimits(FirstTemperatureRow);
    m_timers.OfferStop();
    StartMonitorTimers();
}

void ControlCentre::SetUpDisplay() {
    ShowPins(ReadAt(m_bench.Bus, reg::Config2));
    ShowSharedInputs((ReadAt(m_bench.Bus, reg::Config1) & EnVExt2) != 0);
    m_gpio.LineVisible(gpio::ThermLine,
                       (ReadAt(m_bench.Bus, reg::Config3) & gpio::ThermEnable) != 0);
    m_sizes.SizeStrip(StripGroup);
}

void ControlCentre::ShowPins(unsigned config2) {
    for (int pin = 0; pin < gpio::FanLineCount; ++pin) {
        const bool isGPIO = (config2 >> pin & 1U) != 0;
        m_gpio.LineVisible(pin, isGPIO);
        ShowRow(FirstFanRow + pin, !isGPIO);
    }
}

void ControlCentre::ShowSharedInputs(bool voltages) {
    ShowRow(RowExtTemp1, !voltages);
    ShowRow(RowAin8, voltages);
    ShowRow(RowAin9, voltages);
}

void ControlCentre::ShowRow(int row, bool visible) {
    m_rows.Visible(row, visible);
    m_lamps.Lamp(MonitorRows.at(row).Lamp).setVisible(visible);
}

void ControlCentre::BargraphTick() {
    m_tick.Run(m_tabs.TabOnView());
}

void ControlCentre::InterruptTick() {
    m_lamps.ShowStatus(m_tabs.TabOnView());
}

void ControlCentre::GPIOTick() {
    m_gpio.ShowGPIOLevels();
}

} // namespace tqx
