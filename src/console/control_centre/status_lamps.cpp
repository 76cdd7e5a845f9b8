#include "control_centre/status_lamps.h"

#include <controls/alarm_lamp.h>
#include <device/register_addresses.h>
#include <link/link_new_com_port.h>

#include <QWidget>

#include <cstdint>
#include <span>

namespace tqx {
namespace {

struct LampBit {
    int Lamp;
    int Bit;
};

/// The lamps written from one register, in rising bit order.
struct StatusRead {
    std::uint8_t Register;
    std::span<const LampBit> Lamps;
};

// clang-format off
constexpr std::array<LampBit, 3> TempOfStatus1{{{2, 0}, {3, 1}, {19, 1}}};
constexpr std::array<LampBit, 3> TempOfStatus4{{{0, 0}, {5, 1}, {30, 6}}};
constexpr std::array<LampBit, 8> FansOfStatus3{{
    {20, 0}, {1, 1}, {21, 2}, {22, 3}, {23, 4}, {24, 5}, {25, 6}, {26, 7}}};
constexpr std::array<LampBit, 9> VoltOfStatus1{{
    {2, 0}, {3, 1}, {19, 1}, {27, 2}, {28, 3}, {6, 4}, {9, 5}, {8, 6}, {7, 7}}};
constexpr std::array<LampBit, 8> VoltOfStatus2{{
    {10, 0}, {11, 1}, {12, 2}, {13, 3}, {14, 4}, {15, 5}, {16, 6}, {17, 7}}};
constexpr std::array<LampBit, 4> VoltOfStatus4{{{0, 0}, {5, 1}, {18, 2}, {30, 6}}};

constexpr std::array<StatusRead, 2> TempStatus{{
    {reg::Status1, TempOfStatus1}, {reg::Status4, TempOfStatus4}}};
constexpr std::array<StatusRead, 1> FanStatus{{
    {reg::Status3, FansOfStatus3}}};
constexpr std::array<StatusRead, 3> VoltStatus{{
    {reg::Status1, VoltOfStatus1}, {reg::Status2, VoltOfStatus2}, {reg::Status4, VoltOfStatus4}}};
// clang-format on

constexpr std::uint8_t CIClear = 0x02;

void Show(LinkNewComPort& bus, const StatusLamps& lamps, std::span<const StatusRead> reads) {
    for (const StatusRead& read : reads) {
        const unsigned status = ReadAt(bus, read.Register);
        for (const LampBit& lamp : read.Lamps) {
            lamps.Lamp(lamp.Lamp).Value((status >> lamp.Bit & 1U) != 0);
        }
    }
}

} // namespace

StatusLamps::StatusLamps(LinkNewComPort& bus, QWidget* parent)
    : m_bus(bus) {
    for (int index = 0; index < Count; ++index) {
        if (index == NoSuchLamp) {
            continue;
        }
        auto* const lamp = new AlarmLamp(parent);
        lamp->setObjectName(QStringLiteral("SSPanel11(%1)").arg(index));
        m_lamps[static_cast<std::size_t>(index)] = lamp;
    }
}

AlarmLamp& StatusLamps::Lamp(int index) const {
    return *m_lamps.at(static_cast<std::size_t>(index));
}

void StatusLamps::ShowTempStatus() {
    Show(m_bus, *this, TempStatus);
}

void StatusLamps::ShowFanStatus() {
    Show(m_bus, *this, FanStatus);
}

void StatusLamps::ShowVoltStatus() {
    Show(m_bus, *this, VoltStatus);
}

void StatusLamps::ShowStatus(MonitorTab tab) {
    switch (tab) {
    case MonitorTab::Temp:
        ShowTempStatus();
        break;
    case MonitorTab::Fans:
        ShowFanStatus();
        break;
    case MonitorTab::Volt:
        ShowVoltStatus();
        break;
    case MonitorTab::Outside:
        break;
    }
}

void StatusLamps::ClearChassisAlarm() {
    const std::uint8_t config3 = ReadAt(m_bus, reg::Config3);
    WriteAt(m_bus, reg::Config3, static_cast<std::uint8_t>(config3 | CIClear));
    WriteAt(m_bus, reg::Config3, static_cast<std::uint8_t>(config3 & ~CIClear));
}

} // namespace tqx
