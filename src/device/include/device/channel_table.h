#pragma once

#include "device/calculations.h"
#include "device/display_rows.h"
#include "device/fan.h"
#include "device/temperature.h"
#include "device/voltage.h"

#include <array>
#include <optional>

namespace tqx {

class LinkNewComPort;

/// The limits of a channel in its unit: degrees Celsius, revolutions per minute or volts.
struct ChannelLimits {
    double Low = 0;
    /// A fan has none.
    std::optional<double> High;
};

/// The 28 channels of the chip, each known by its row on the control centre.
class ChannelTable {
public:
    explicit ChannelTable(LinkNewComPort& bus);

    ChannelTable(const ChannelTable&) = delete;
    ChannelTable& operator=(const ChannelTable&) = delete;

    /// The fan divisors that the fans convert with.
    tqx::Calculations Calculations;

    /// Channels in the order of their rows: from rows 7, 15 and 3 on.
    /// @{
    std::array<Fan, 8> Fans;
    std::array<Voltage, 17> Voltages;
    std::array<Temperature, 3> Temperatures;
    /// @}

    /// Gives every channel its registers and scale, and fills the fan divisors: two reads on the
    /// bus as BusCell stands, the only ones that the divisors ever get. Run once, before any
    /// channel is used.
    void ConfigureChannels();

    /// Writes the limits of the automatic initialisation: temperatures 0 to 90 degrees, fans 50
    /// revolutions per minute, voltages 10 % to 90 % of their range. The row "Ain 9" keeps the
    /// limits of the temperature that shares its registers.
    void WriteDefaultLimits();

    /// The channel of a row of that kind. Another row raises std::out_of_range.
    /// @{
    Fan& FanOfRow(int row);
    Voltage& VoltageOfRow(int row);
    Temperature& TemperatureOfRow(int row);
    /// @}

    /// @name The channel of a row, whatever its kind
    /// Nothing is read or written for a row without a channel. A voltage's limits are taken as
    /// floats, a temperature's as the nearest whole degrees.
    /// @{
    std::optional<double> Reading(int row);
    std::optional<ChannelLimits> ReadLimits(int row);
    void WriteLimits(int row, const ChannelLimits& limits);
    /// @}

private:
    void WriteDefaultLimitsOfVoltage(int row);
};

} // namespace tqx
