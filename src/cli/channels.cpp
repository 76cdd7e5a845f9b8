// channels, watch and limits: the chip in volts, degrees and revolutions per minute.

#include "commands.h"

#include <device/channel_registers.h>
#include <device/register_addresses.h>
#include <jobs/files.h>
#include <jobs/recording.h>
#include <link/burst_scope.h>
#include <link/link_new_com_port.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

namespace tqx::cli {
namespace {

/// How long a reading is waited for within an interval: fast enough for a mean, slow enough to
/// leave the machine to others.
constexpr std::chrono::milliseconds SamplePeriod{100};

std::vector<ChannelRegisters> ChannelsOnPins(LinkNewComPort& bus) {
    const std::uint8_t config2 = ReadAt(bus, reg::Config2);
    const std::uint8_t config1 = ReadAt(bus, reg::Config1);
    std::vector<ChannelRegisters> channels;
    std::ranges::copy_if(AllChannels(), std::back_inserter(channels), [&](const auto& channel) {
        return PinsAllow(channel.Row, config1, config2);
    });
    return channels;
}

/// Every channel that has limits of its own: those on hidden pins as well, but one of the two that
/// share their registers.
std::vector<ChannelRegisters> ChannelsWithLimits(LinkNewComPort& bus) {
    const std::uint8_t config1 = ReadAt(bus, reg::Config1);
    std::vector<ChannelRegisters> channels;
    std::ranges::copy_if(AllChannels(), std::back_inserter(channels), [&](const auto& channel) {
        return ChannelOfRegister(channel.LowLimit, (config1 & EnableVoltages) != 0)->Row ==
               channel.Row;
    });
    return channels;
}

std::string Caption(const ChannelRegisters& channel) {
    return std::string(CaptionOfRow(channel.Row));
}

bool IsFan(const ChannelRegisters& channel) {
    return KindOfRow(channel.Row) == RowKind::Fan;
}

double ReadScaled(tqx::Bench& bench, const ChannelRegisters& channel, std::uint8_t reg) {
    return ReadingOfByte(bench.Channels, channel.Row, ReadAt(bench.Bus, reg));
}

/// One tick: each channel and each status register once.
std::vector<RecordedReading> ReadAll(tqx::Bench& bench,
                                     const std::vector<ChannelRegisters>& channels) {
    const BurstScope burst(bench.Link->PrinterPortLink());
    std::vector<RecordedReading> readings;
    readings.reserve(channels.size());
    for (const ChannelRegisters& channel : channels) {
        readings.push_back({ReadScaled(bench, channel, channel.Value)});
    }
    std::map<std::uint8_t, std::uint8_t> status;
    for (const ChannelRegisters& channel : channels) {
        if (!status.contains(channel.Status)) {
            status[channel.Status] = ReadAt(bench.Bus, channel.Status);
        }
    }
    for (std::size_t i = 0; i < channels.size(); ++i) {
        readings[i].Alarm = (status[channels[i].Status] >> channels[i].AlarmBit & 1) != 0;
    }
    return readings;
}

struct LimitsOfChannel {
    double Low;
    std::optional<double> High;
};

LimitsOfChannel ReadLimits(tqx::Bench& bench, const ChannelRegisters& channel) {
    const double low = ReadScaled(bench, channel, channel.LowLimit);
    if (IsFan(channel)) {
        return {low, {}};
    }
    return {low, ReadScaled(bench, channel, channel.HighLimit)};
}

/// A row of a table: the first cell to the left, the others to the right.
void PrintRow(std::ostream& out, const std::vector<std::string>& cells) {
    constexpr std::size_t width = 9;
    std::string line = Padded(cells.front(), width);
    for (auto cell = cells.begin() + 1; cell != cells.end(); ++cell) {
        line += " " + std::string(width - std::min(width, cell->size()), ' ') + *cell;
    }
    out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

std::string NumberOrNone(const std::optional<double>& number) {
    return number ? NumberOf(*number) : "---";
}

Json LimitsAsJson(tqx::Bench& bench) {
    Json all = Json::object();
    for (const ChannelRegisters& channel : ChannelsWithLimits(bench.Bus)) {
        const LimitsOfChannel limits = ReadLimits(bench, channel);
        Json& one = all[Caption(channel)];
        one["unit"] = UnitOfRow(channel.Row);
        one["low"] = limits.Low;
        if (limits.High) {
            one["high"] = *limits.High;
        }
    }
    return all;
}

/// A limit that is to be written, and the byte that comes nearest to it.
struct WantedLimit {
    ChannelRegisters Channel;
    bool High;
    double Asked;
    std::uint8_t Byte;

    std::uint8_t Register() const { return High ? Channel.HighLimit : Channel.LowLimit; }

    std::string Name() const { return Caption(Channel) + (High ? " high" : " low"); }
};

/// Everything in the file is looked at before the first limit is written.
std::vector<WantedLimit> LimitsIn(const Json& file, tqx::Bench& bench, const std::string& name) {
    const std::vector<ChannelRegisters> channels = ChannelsWithLimits(bench.Bus);
    const auto refuse = [&name](const std::string& caption, const std::string& why) {
        throw Refusal(WrongUse, name + ": " + why + " " + caption);
    };
    std::vector<WantedLimit> wanted;
    for (const auto& [caption, limits] : file.items()) {
        const auto channel = std::ranges::find(channels, caption, Caption);
        if (channel == channels.end()) {
            refuse(caption, "this chip has no channel");
        }
        for (const bool high : {false, true}) {
            const auto limit = limits.find(high ? "high" : "low");
            if (limit == limits.end() || (high && IsFan(*channel))) {
                continue;
            }
            const auto byte = limit->is_number() ? NearestByte(bench.Channels, channel->Row, *limit)
                                                 : std::nullopt;
            if (!byte) {
                refuse(caption, limit->dump() + " is no limit that can be held by");
            }
            wanted.push_back({*channel, high, *limit, *byte});
        }
    }
    return wanted;
}

} // namespace

Status ShowChannels(Context& context) {
    context.Chip.Choose();
    tqx::Bench& bench = context.Bench();
    const std::vector<ChannelRegisters> channels = ChannelsOnPins(bench.Bus);
    const std::vector<RecordedReading> readings = ReadAll(bench, channels);
    Json all = Json::array();
    if (!context.AsJson) {
        PrintRow(context.Around.Out, {"Channel", "Value", "Unit", "Low", "High", "Alarm"});
    }
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const LimitsOfChannel limits = ReadLimits(bench, channels[i]);
        const std::string unit(UnitOfRow(channels[i].Row));
        if (!context.AsJson) {
            PrintRow(context.Around.Out, {Caption(channels[i]), NumberOf(*readings[i].Value), unit,
                                          NumberOf(limits.Low), NumberOrNone(limits.High),
                                          readings[i].Alarm ? "alarm" : ""});
            continue;
        }
        Json one{{"channel", Caption(channels[i])},
                 {"value", *readings[i].Value},
                 {"unit", unit},
                 {"low", limits.Low}};
        if (limits.High) {
            one["high"] = *limits.High;
        }
        one["alarm"] = readings[i].Alarm;
        all.push_back(one);
    }
    if (context.AsJson) {
        context.Print(all);
    }
    return Done;
}

namespace {

/// One run of `watch`.
class Watcher {
public:
    Watcher(Context& context, const WatchChoice& choice)
        : m_context(context)
        , m_every(TimeIn(choice.Every))
        , m_length(choice.For.empty() ? std::chrono::nanoseconds::max() : TimeIn(choice.For))
        , m_untilAlarm(choice.UntilAlarm) {
        context.Chip.Choose();
        m_channels = ChannelsOnPins(context.Bench().Bus);
        if (!choice.CSV.empty()) {
            std::vector<RecordedChannel> recorded;
            for (const ChannelRegisters& channel : m_channels) {
                recorded.push_back({Caption(channel), std::string(UnitOfRow(channel.Row))});
            }
            m_recording.emplace(choice.CSV, recorded, m_every);
            FailIfFull();
        } else if (!context.AsJson) {
            std::vector<std::string> captions{Padded("Time", 29)};
            std::ranges::transform(m_channels, std::back_inserter(captions), Caption);
            PrintRow(context.Around.Out, captions);
        }
    }

    Status Run() {
        Surroundings& around = m_context.Around;
        const std::chrono::nanoseconds begin = around.Now();
        const std::chrono::nanoseconds period =
            m_recording ? std::min<std::chrono::nanoseconds>(m_every, SamplePeriod) : m_every;
        std::string alarms;
        std::chrono::nanoseconds due = begin;
        while (!around.Stopped() && around.Now() - begin < m_length) {
            alarms = Tick(begin);
            if (m_untilAlarm && !alarms.empty()) {
                break;
            }
            due = std::max(due + period, around.Now());
            around.Sleep(std::min(due - around.Now(), m_length - (around.Now() - begin)));
        }
        if (m_recording) {
            m_recording->Stop();
            FailIfFull();
            around.Err << Counted(static_cast<std::size_t>(m_recording->Rows()), "row") << " in "
                       << m_recording->Place() << '\n';
        }
        if (m_untilAlarm && !alarms.empty()) {
            around.Err << "alarm: " << alarms << '\n';
            return AnswerIsNo;
        }
        return Done;
    }

private:
    /// The channels that alarm.
    std::string Tick(std::chrono::nanoseconds begin) {
        const std::vector<RecordedReading> readings = ReadAll(m_context.Bench(), m_channels);
        const RecordedMoment moment{m_context.Around.Wall(), m_context.Around.Now()};
        std::string alarms;
        for (std::size_t i = 0; i < readings.size(); ++i) {
            if (readings[i].Alarm) {
                alarms += (alarms.empty() ? "" : ", ") + Caption(m_channels[i]);
            }
        }
        if (m_recording) {
            m_recording->Take(moment, readings);
            FailIfFull();
        } else {
            Print(moment, begin, readings);
        }
        return alarms;
    }

    void Print(const RecordedMoment& moment, std::chrono::nanoseconds begin,
               const std::vector<RecordedReading>& readings) {
        std::vector<std::string> cells{TimeOf(moment.Wall)};
        Json values = Json::object();
        Json alarms = Json::array();
        for (std::size_t i = 0; i < readings.size(); ++i) {
            cells.push_back(NumberOf(*readings[i].Value) + (readings[i].Alarm ? "!" : ""));
            values[Caption(m_channels[i])] = *readings[i].Value;
            if (readings[i].Alarm) {
                alarms.push_back(Caption(m_channels[i]));
            }
        }
        std::ostream& out = m_context.Around.Out;
        if (m_context.AsJson) {
            const std::chrono::duration<double> seconds = moment.Steady - begin;
            m_context.Print({{"time", cells.front()},
                             {"seconds", seconds.count()},
                             {"values", values},
                             {"alarms", alarms}});
        } else {
            PrintRow(out, cells);
        }
        if (!out.flush()) {
            throw FileError("cannot write the readings: whoever read them has gone");
        }
    }

    void FailIfFull() const {
        if (m_recording && m_recording->Failed()) {
            throw FileError("cannot record to " + m_recording->Place() + ": " +
                            m_recording->Reason() + "; " +
                            Counted(static_cast<std::size_t>(m_recording->Rows()), "row") +
                            " of this run are in it");
        }
    }

    Context& m_context;
    std::chrono::nanoseconds m_every;
    std::chrono::nanoseconds m_length;
    bool m_untilAlarm;
    std::vector<ChannelRegisters> m_channels;
    std::optional<Recording> m_recording;
};

} // namespace

Status Watch(Context& context, const WatchChoice& choice) {
    return Watcher(context, choice).Run();
}

Status ShowLimits(Context& context) {
    context.Chip.Choose();
    const Json limits = LimitsAsJson(context.Bench());
    if (context.AsJson) {
        context.Print(limits);
        return Done;
    }
    PrintRow(context.Around.Out, {"Channel", "Low", "High", "Unit"});
    for (const auto& [caption, each] : limits.items()) {
        PrintRow(context.Around.Out,
                 {caption, NumberOf(each["low"]),
                  each.contains("high") ? NumberOf(each["high"]) : "---", each["unit"]});
    }
    return Done;
}

Status WriteDefaultLimits(Context& context) {
    context.Chip.Choose();
    context.Bench().Channels.WriteDefaultLimits();
    context.Around.Err << "All limits are at their defaults.\n";
    return Done;
}

Status SaveLimits(Context& context, const std::string& file) {
    context.Chip.Choose();
    const Json limits = LimitsAsJson(context.Bench());
    ReplaceFile(file, limits.dump(2) + "\n");
    context.Around.Err << "Limits of " << Counted(limits.size(), "channel") << " saved to " << file
                       << '\n';
    return Done;
}

Status LoadLimits(Context& context, const std::string& file) {
    const Json content = Json::parse(ReadFile(file), nullptr, false);
    if (!content.is_object()) {
        throw Refusal(WrongUse, file + " is no file of limits, such as `limits save` writes");
    }
    context.Chip.Choose();
    tqx::Bench& bench = context.Bench();
    const std::vector<WantedLimit> wanted = LimitsIn(content, bench, file);
    bool kept = true;
    std::size_t rounded = 0;
    for (const WantedLimit& limit : wanted) {
        WriteAt(bench.Bus, limit.Register(), limit.Byte);
        const std::uint8_t byte = ReadAt(bench.Bus, limit.Register());
        const std::string stands =
            NumberOf(ReadingOfByte(bench.Channels, limit.Channel.Row, byte)) + " " +
            std::string(UnitOfRow(limit.Channel.Row));
        if (byte != limit.Byte) {
            kept = false;
            context.Around.Err << limit.Name() << ": the chip kept " << stands << '\n';
        } else if (NumberOf(limit.Asked) !=
                   NumberOf(ReadingOfByte(bench.Channels, limit.Channel.Row, byte))) {
            ++rounded;
            context.Around.Err << limit.Name() << ": " << NumberOf(limit.Asked) << " became "
                               << stands << '\n';
        }
    }
    context.Around.Err << Counted(wanted.size(), "limit") << " written, " << rounded
                       << " of them rounded\n";
    return kept ? Done : AnswerIsNo;
}

} // namespace tqx::cli
