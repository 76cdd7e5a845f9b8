#include "device/fan.h"

#include "device/calculations.h"
#include "device/rounding.h"

#include <link/link_new_com_port.h>

namespace tqx {

Fan::Fan(LinkNewComPort& bus, Calculations& calculations)
    : m_bus(bus)
    , m_calculations(calculations) {}

double Fan::Speed() {
    return ReadSpeed(ValueAddressPointer);
}

double Fan::Limit() {
    return ReadSpeed(LimitAddressPointer);
}

void Fan::Limit(double rpm) {
    const double count = FanCountConvert(rpm, LookupDivisor());
    WriteAt(m_bus, LimitAddressPointer, RoundToByte(count));
}

std::int16_t Fan::Divisor() {
    m_calculations.RefreshFanDivisors();
    return LookupDivisor();
}

std::int16_t Fan::LookupDivisor() const {
    return m_calculations.FanDivisors.at(static_cast<std::size_t>(Number));
}

double Fan::ReadSpeed(std::int16_t address) {
    return FanCountConvert(ReadAt(m_bus, address), LookupDivisor());
}

} // namespace tqx
