#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tqx {

class ChannelTable;

/// The registers of one channel and the bit of the status registers that is its alarm. A fan has
/// one limit only, which stands in both places.
struct ChannelRegisters {
    int Row;
    std::uint8_t Value;
    std::uint8_t LowLimit;
    std::uint8_t HighLimit;
    std::uint8_t Status;
    std::uint8_t AlarmBit;
};

inline constexpr std::size_t ChannelCount = 28;

/// All channels in the order of their rows.
const std::array<ChannelRegisters, ChannelCount>& AllChannels();

/// The channel that a register belongs to. Rows 5 and 29 share theirs: `voltages` says whether the
/// chip measures the voltages of the shared pins.
const ChannelRegisters* ChannelOfRegister(std::uint8_t reg, bool voltages);

/// True when the pins of the chip are set up for the channel of `row`, as the bytes of "Config 1"
/// and "Config 2" say.
bool PinsAllow(int row, std::uint8_t config1, std::uint8_t config2);

/// The bit of "Config 1" with which Ain 8 and Ain 9 take the place of ExtTemp1.
inline constexpr std::uint8_t EnableVoltages = 0x08;

/// "C", "RPM" or "V".
std::string_view UnitOfRow(int row);

/// What a byte of the channel's registers stands for: whole degrees, revolutions per minute or
/// volts, these rounded to three decimals.
double ReadingOfByte(const ChannelTable& channels, int row, std::uint8_t byte);

/// The byte that reads nearest to `reading`; nothing when it lies beyond what the byte can hold.
///
/// It is not always the byte that the limit properties write: those leave the lower end of a
/// voltage's range out of the count, so that a limit written as it was read would creep upwards.
std::optional<std::uint8_t> NearestByte(const ChannelTable& channels, int row, double reading);

} // namespace tqx
