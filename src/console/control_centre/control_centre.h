#pragma once

#include "control_centre/channel_rows.h"
#include "control_centre/gauge_limits.h"
#include "control_centre/monitor_tick.h"
#include "control_centre/monitor_timers.h"
#include "control_centre/size_strip_bar.h"
#include "control_centre/status_lamps.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace tqx {

class ChannelTabs;
class GPIODisplay;
class LinearGauge;
class StripChart;
struct Bench;

/// `ControlCentrePanel`, the live display: one channel with its limits on the gauge, a group of
/// channels on the chart, a lamp per channel and the GPIO levels.
///
/// It touches the chip only in the operations below, which raise LinkError, and when the user acts.
/// A link call that fails leaves the panel usable; the monitor goes on until it is stopped.
class ControlCentre : public QWidget, public MonitorState {
    Q_OBJECT

public:
    explicit ControlCentre(Bench& bench, QWidget* parent = nullptr);

    /// Fits rows, lamps, GPIO digits and legends to the chip's pin configuration. Empties the
    /// chart.
    void SetUpDisplay();

    /// The first entry: row 3 on the gauge, the temperatures on the chart, the chip switched on and
    /// the monitor running.
    void SetUpControlCentre();

    void StartMonitorTimers() { m_timers.StartMonitorTimers(); }

    void StopMonitorTimers() { m_timers.StopMonitorTimers(); }

    /// VisStartCHK as it stands while the monitor runs.
    void OfferStop() { m_timers.OfferStop(); }

    /// Takes the gauge's pointer out of the user's hand, and writes nothing of it.
    void LetGo();

    /// @name The ticks of the three timers
    /// @{
    void BargraphTick();
    void InterruptTick();
    void GPIOTick();
    /// @}

Q_SIGNALS:
    /// A click on a `GPIO` label.
    void GPIOPanelWanted();

private:
    void RowClicked(int row);
    void SelectRow(int row);

    void ShowPins(unsigned config2);
    void ShowSharedInputs(bool voltages);
    void ShowRow(int row, bool visible);

    void LayOut();
    void AddBargraph(QVBoxLayout& column);
    void AddBottomLine(QHBoxLayout& line);
    void OrderTabs();
    void ConnectParts();

    Bench& m_bench;
    LinearGauge& m_gauge;
    StripChart& m_chart;
    ChannelRows m_rows;
    StatusLamps m_lamps;
    ChannelTabs& m_tabs;
    GPIODisplay& m_gpio;
    QAbstractButton& m_startStop;
    QLabel& m_channelName;
    MonitorTimers m_timers;
    SizeStripBar m_sizes;
    GaugeLimits m_limits;
    MonitorTick m_tick;
};

} // namespace tqx
