#pragma once

#include "control_centre/monitor_rows.h"

#include <QTabWidget>

class QGridLayout;

namespace tqx {

class AlarmLamp;
class ChannelRows;
class RowLabel;
class StatusLamps;

/// `BargraphTab`: the channel rows on three tabs, each with its lamp beside it, and the chassis
/// alarm under the voltages.
class ChannelTabs : public QTabWidget {
    Q_OBJECT

public:
    /// Takes the rows and the lamps onto its pages.
    ChannelTabs(const ChannelRows& rows, const StatusLamps& lamps, QWidget* parent = nullptr);

    /// The last one that the keyboard comes to.
    QWidget* LastRow() const;

    MonitorTab TabOnView() const { return static_cast<MonitorTab>(currentIndex()); }

Q_SIGNALS:
    /// A click on `CITXT` or its lamp.
    void ChassisClicked();

private:
    QWidget* NewPage(MonitorTab tab, const ChannelRows& rows, const StatusLamps& lamps);
    void AddChassisLine(QGridLayout& grid, AlarmLamp& lamp, QWidget* page);

    RowLabel* m_chassis = nullptr;
};

} // namespace tqx
