#pragma once

#include "control_centre/monitor_rows.h"

#include <array>

class QWidget;

namespace tqx {

class AlarmLamp;
class LinkNewComPort;

/// The lamps `SSPanel11`, each the bit of a status register as it was last read, and the one
/// alarm that can be cleared from the control centre.
class StatusLamps {
public:
    /// Indices run from 0 to 30; there is no lamp 29.
    static constexpr int Count = 31;
    static constexpr int NoSuchLamp = 29;
    static constexpr int ChassisLamp = 30;

    /// The lamps are made as children of `parent`, which lays them out.
    StatusLamps(LinkNewComPort& bus, QWidget* parent);

    AlarmLamp& Lamp(int index) const;

    /// @name The three status passes
    /// Each reads its registers once and writes every lamp named for them, hidden ones too. Lamps
    /// outside the pass stay as they were.
    /// @{
    void ShowTempStatus();
    void ShowFanStatus();
    void ShowVoltStatus();
    /// @}

    /// The pass of the tab on view.
    void ShowStatus(MonitorTab tab);

    /// Pulses "CI Clear". The other bits of its register stay as they were read.
    void ClearChassisAlarm();

private:
    LinkNewComPort& m_bus;
    std::array<AlarmLamp*, Count> m_lamps{};
};

} // namespace tqx
