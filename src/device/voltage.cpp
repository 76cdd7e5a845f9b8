#include "device/voltage.h"

#include "device/rounding.h"

#include <link/link_new_com_port.h>

#include <algorithm>
#include <cmath>

namespace tqx {
namespace {

constexpr float FullScale = 255.0F;

float ToMillivolts(float volts) {
    return static_cast<float>(RoundToEven(volts, 3));
}

} // namespace

Voltage::Voltage(LinkNewComPort& bus)
    : m_bus(bus) {}

float Voltage::Value() {
    return ToMillivolts(ReadVolts(ValueAddrPtr));
}

float Voltage::LowLimit() {
    return ReadVolts(LowLimitPtr);
}

void Voltage::LowLimit(float volts) {
    WriteVolts(LowLimitPtr, volts);
}

float Voltage::HighLimit() {
    return ReadVolts(HighLimitPtr);
}

void Voltage::HighLimit(float volts) {
    WriteVolts(HighLimitPtr, volts);
}

float Voltage::RawToVolts(float raw) const {
    if (raw == 0.0F) {
        raw = 1.0F;
    }
    const float step = (MaxVoltage - MinVoltage) / FullScale;
    return step * raw + MinVoltage;
}

float Voltage::VoltsToRaw(float volts) const {
    if (volts == 0.0F) {
        volts = 1.0F;
    }
    if (MinVoltage >= 0.0F) {
        return std::min(volts / ((MaxVoltage - MinVoltage) / FullScale), FullScale);
    }
    const float span = std::abs(MinVoltage - MaxVoltage);
    const float step = span / FullScale;
    if (volts < 0.0F) {
        const float q = std::floor((std::abs(volts) + MaxVoltage) / step);
        return FullScale - std::abs(q);
    }
    return std::floor((span - MaxVoltage + volts) / step);
}

float Voltage::ReadVolts(std::int16_t address) {
    return RawToVolts(ReadAt(m_bus, address));
}

void Voltage::WriteVolts(std::int16_t address, float volts) {
    WriteAt(m_bus, address, RoundToByte(VoltsToRaw(ToMillivolts(volts))));
}

} // namespace tqx
