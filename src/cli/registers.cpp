// find, read, write and initialize: the chip register by register.

#include "commands.h"

#include <device/channel_registers.h>
#include <device/register_addresses.h>
#include <jobs/recording.h>
#include <link/link_new_com_port.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tqx::cli {
namespace {

/// One register as it was read.
struct Reading {
    std::uint8_t Register;
    std::uint8_t Value;
    std::vector<std::string> Bits;
    /// With its unit where it is a measured value or a limit.
    std::optional<double> Number;
    std::string Unit;
};

const ChannelRegisters* ChannelOf(tqx::Bench& bench, std::uint8_t reg) {
    const ChannelRegisters* const one = ChannelOfRegister(reg, false);
    const ChannelRegisters* const other = ChannelOfRegister(reg, true);
    if (one == other) {
        return one;
    }
    return (ReadAt(bench.Bus, reg::Config1) & EnableVoltages) != 0 ? other : one;
}

Reading ReadingOf(tqx::Bench& bench, std::uint8_t reg) {
    const ChannelRegisters* const channel = ChannelOf(bench, reg);
    Reading reading{reg, ReadAt(bench.Bus, reg), {}, {}, {}};
    reading.Bits = BitsOf(reg, reading.Value);
    if (channel != nullptr) {
        reading.Number = ReadingOfByte(bench.Channels, channel->Row, reading.Value);
        reading.Unit = UnitOfRow(channel->Row);
    }
    return reading;
}

std::string NumberWithUnit(const Reading& reading) {
    return reading.Number ? NumberOf(*reading.Number) + " " + reading.Unit : "";
}

void Print(Context& context, const std::vector<Reading>& readings) {
    if (context.AsJson) {
        Json all = Json::array();
        for (const Reading& each : readings) {
            Json one{{"register", NameOf(each.Register)},
                     {"address", HexText(each.Register) + "h"},
                     {"value", each.Value},
                     {"hex", HexText(each.Value) + "h"},
                     {"bits", each.Bits}};
            if (each.Number) {
                one["reading"] = *each.Number;
                one["unit"] = each.Unit;
            }
            all.push_back(one);
        }
        context.Print(all);
        return;
    }
    for (const Reading& each : readings) {
        std::string line = Padded(HexText(each.Register) + "h", 5) +
                           Padded(std::string(NameOf(each.Register)), 19) +
                           Padded(HexText(each.Value) + "h", 5) +
                           Padded(std::to_string(each.Value), 5) + BinaryText(each.Value);
        std::string bits;
        for (const std::string& bit : each.Bits) {
            bits += (bits.empty() ? "  " : ", ") + bit;
        }
        line += each.Number ? "  " + NumberWithUnit(each) : bits;
        context.Around.Out << line << '\n';
    }
}

std::string Named(std::uint8_t reg) {
    const std::string name(NameOf(reg));
    return HexText(reg) + "h" + (name.empty() ? "" : " " + name);
}

bool IsBit(const std::string& value) {
    return value.starts_with('+') || value.starts_with('-');
}

/// The byte that `values` ask of the register, which is read where only some of its bits are named.
std::uint8_t ByteWanted(tqx::Bench& bench, std::uint8_t reg,
                        const std::vector<std::string>& values) {
    if (const auto quantity = QuantityIn(values.front())) {
        const ChannelRegisters* const channel = ChannelOf(bench, reg);
        if (channel == nullptr || Plain(UnitOfRow(channel->Row)) != quantity->Unit) {
            throw Refusal(WrongUse, Named(reg) + " is not in " + quantity->Unit);
        }
        const auto byte = NearestByte(bench.Channels, channel->Row, quantity->Value);
        if (!byte) {
            throw Refusal(WrongUse, Named(reg) + " cannot hold " + values.front());
        }
        return *byte;
    }
    if (!IsBit(values.front())) {
        return static_cast<std::uint8_t>(NumberIn(values.front()).value());
    }
    std::uint8_t byte = ReadAt(bench.Bus, reg);
    for (const std::string& value : values) {
        const int bit = BitIn(reg, value.substr(1));
        byte = static_cast<std::uint8_t>(value[0] == '+' ? byte | bit : byte & ~bit);
    }
    return byte;
}

/// What can be told of wrong values without a chip.
void CheckValues(std::uint8_t reg, const std::vector<std::string>& values) {
    for (const std::string& value : values) {
        if (QuantityIn(value)) {
            if (values.size() > 1) {
                throw Refusal(WrongUse, "a value stands alone; only +bit and -bit can be several");
            }
        } else if (IsBit(value)) {
            BitIn(reg, value.substr(1));
        } else if (NumberIn(value).value_or(0x100) > 0xFF || values.size() > 1) {
            throw Refusal(WrongUse, "\"" + value +
                                        "\" is no byte (E6h, 0xE6, 230), no value with a "
                                        "unit (11.4V, 45C, 3000RPM) and no +bit or -bit");
        }
    }
}

} // namespace

Status FindChips(Context& context) {
    const std::vector<FoundChip> finds = context.Chip.Find();
    Json all = Json::array();
    for (const FoundChip& find : finds) {
        if (!context.AsJson) {
            context.Around.Out << Sentence(find) << '\n';
            continue;
        }
        Json one{{"medium", find.OnSMBus ? "SMBus" : "printer port"},
                 {"address", HexText(find.Address) + "h"}};
        if (find.Base != 0) {
            one["place"] = HexText(find.Base) + "h";
        }
        if (!find.OnSMBus) {
            one["wiring"] = find.Inverted ? "inverted" : "direct";
        }
        all.push_back(one);
    }
    if (context.AsJson) {
        context.Print(all);
    }
    if (finds.empty()) {
        context.Around.Err << "tqx7716: no TQX7716 was found\n";
    }
    return finds.empty() ? AnswerIsNo : Done;
}

Status ReadRegisters(Context& context, const std::vector<std::string>& registers) {
    std::vector<std::uint8_t> wanted;
    std::ranges::transform(registers, std::back_inserter(wanted), RegisterIn);
    context.Chip.Choose();
    std::vector<Reading> readings;
    std::ranges::transform(wanted, std::back_inserter(readings),
                           [&](std::uint8_t reg) { return ReadingOf(context.Bench(), reg); });
    Print(context, readings);
    return Done;
}

Status WriteRegister(Context& context, const std::string& reg,
                     const std::vector<std::string>& values) {
    const std::uint8_t at = RegisterIn(reg);
    CheckValues(at, values);
    context.Chip.Choose();
    const std::uint8_t byte = ByteWanted(context.Bench(), at, values);
    WriteAt(context.Bench().Bus, at, byte);
    const Reading kept = ReadingOf(context.Bench(), at);
    if (context.AsJson) {
        Print(context, {kept});
    }
    const std::string reading = NumberWithUnit(kept);
    context.Around.Err << Named(at) << (kept.Value == byte ? " is " : " kept ")
                       << HexText(kept.Value) << "h" << (reading.empty() ? "" : ", " + reading)
                       << (kept.Value == byte ? "" : ", not " + HexText(byte) + "h") << '\n';
    return kept.Value == byte ? Done : AnswerIsNo;
}

Status Initialize(Context& context) {
    constexpr std::uint8_t start = 0x03;
    constexpr std::uint8_t outputs = 0x55;
    context.Chip.Choose();
    tqx::Bench& bench = context.Bench();
    WriteAt(bench.Bus, reg::Config1, start);
    for (std::uint8_t fan = 0; fan < 8; ++fan) {
        bench.Coms.WriteRegisterByte(static_cast<std::uint8_t>(reg::Fan0HighLimit + fan), 0xFF);
    }
    bench.Coms.WriteRegisterByte(reg::Mask6, 0xFF);
    bench.Coms.WriteRegisterByte(reg::GPIOConfig3, outputs);
    bench.Coms.WriteRegisterByte(reg::GPIOConfig4, outputs);
    WriteAt(bench.Bus, reg::Config1, start);
    bench.Channels.WriteDefaultLimits();
    context.Around.Err << "The chip and all its limits are initialized; GPIO lines 8 to 15 are "
                          "outputs.\n";
    return Done;
}

} // namespace tqx::cli
