// dump, compare, eeprom and block: the chip byte by byte.

#include "commands.h"

#include <device/eeprom_map.h>
#include <device/register_addresses.h>
#include <jobs/chip_image.h>
#include <jobs/eeprom_work.h>
#include <jobs/files.h>
#include <jobs/register_dump.h>
#include <link/burst_scope.h>
#include <link/link_error.h>

#include <algorithm>
#include <cstdio>

namespace tqx::cli {
namespace {

constexpr int PageCount = ChipImage::EEPROMSize / eeprom::PageSize;

/// How long a real chip takes to program a byte or to clear a page.
constexpr std::chrono::milliseconds ProgramPause{static_cast<int>(eeprom::ProgramPause * 1000)};

/// The dump's window onto this command.
class DumpOnTerminal : public DumpDoor {
public:
    DumpOnTerminal(Context& context, int rows)
        : m_context(context)
        , m_bar(context.Around, rows) {}

    void RowWritten() override { m_bar.Show(++m_rows); }

    void ServeEvents() override {}

    bool StopRequested() override { return m_context.Around.Stopped(); }

private:
    Context& m_context;
    ProgressBar m_bar;
    int m_rows = 0;
};

ChipImage ImageOf(const std::string& file) {
    return ImageIn(ReadFile(file), file);
}

/// What the chip holds now of the bytes that `like` knows.
ChipImage ReadLike(Context& context, const ChipImage& like) {
    if (like.HasEEPROM() && !like.HasRegisters()) {
        context.Chip.NeedPrinterPort("the EEPROM");
    }
    ChipImage image;
    tqx::Bench& bench = context.Bench();
    const BurstScope burst(bench.Link->PrinterPortLink());
    for (std::size_t i = 0; i < image.Registers.size(); ++i) {
        if (like.Registers.at(i)) {
            image.Registers.at(i) = bench.Coms.ReadRegisterByte(static_cast<std::uint8_t>(i));
        }
    }
    ProgressBar bar(context.Around, ChipImage::EEPROMSize);
    for (std::size_t i = 0; i < image.EEPROM.size() && !context.Chip.OnSMBus(); ++i) {
        if (context.Around.Stopped()) {
            throw Refusal(AnswerIsNo, "stopped before all was compared");
        }
        if (like.EEPROM.at(i)) {
            image.EEPROM.at(i) = bench.Link->PrinterPortLink().EEPROMLink().ReadEEPROM(
                static_cast<std::uint8_t>(eeprom::FirstHighByte + i / eeprom::BlockSize),
                static_cast<std::uint8_t>(i));
            bar.Show(static_cast<int>(i));
        }
    }
    return image;
}

/// Registers that change by themselves: measured values and status.
bool IsMeasured(const ChipDifference& difference) {
    const std::size_t at = difference.Address;
    return !difference.EEPROM && (at == 0x1F || (at >= reg::Status1 && at <= 0x3F));
}

void PrintDifference(Context& context, const ChipDifference& each, Json& all) {
    const auto reg = static_cast<std::uint8_t>(each.Address);
    const std::string place = each.EEPROM ? EEPROMPlace(each.Address) : HexText(each.Address) + "h";
    const auto set = static_cast<std::uint8_t>(each.Second & ~each.First);
    const auto cleared = static_cast<std::uint8_t>(each.First & ~each.Second);
    std::vector<std::string> bits[2];
    if (!each.EEPROM) {
        bits[0] = BitsOf(reg, set);
        bits[1] = BitsOf(reg, cleared);
    }
    if (context.AsJson) {
        Json one{{"place", place}, {"first", each.First}, {"second", each.Second}};
        if (!each.EEPROM) {
            one["register"] = NameOf(reg);
            one["set"] = bits[0];
            one["cleared"] = bits[1];
        }
        all.push_back(one);
        return;
    }
    std::string line = Padded(place, 6);
    if (!each.EEPROM) {
        line += Padded(std::string(NameOf(reg)), 19);
    }
    line += HexText(each.First) + "h -> " + HexText(each.Second) + "h";
    for (const bool isSet : {true, false}) {
        for (const std::string& bit : bits[isSet ? 0 : 1]) {
            line += (isSet ? "  +" : "  -") + bit;
        }
    }
    context.Around.Out << line << '\n';
}

/// Runs work on the EEPROM and tells how it went, also when the link ends it.
template <typename Run>
Status WorkOnEEPROM(Context& context, const char* did, Run run) {
    context.Chip.Choose();
    context.Chip.NeedPrinterPort("the EEPROM");
    Surroundings& around = context.Around;
    EEPROMOutcome outcome;
    const auto place = [&] {
        return EEPROMPlace(static_cast<std::size_t>(outcome.Pages) * eeprom::PageSize);
    };
    {
        ProgressBar bar(around, PageCount);
        EEPROMWork work(context.Bench().Link,
                        {.Progress = [&](int pages) { bar.Show(pages); },
                         .StopRequested = around.Stopped,
                         .Pause =
                             [&] {
                                 if (!context.Chip.Simulated()) {
                                     const auto end = around.Now() + ProgramPause;
                                     while (around.Now() < end) { // a stop waits for the page's end
                                         around.Sleep(end - around.Now());
                                     }
                                 }
                             }});
        try {
            run(work);
            outcome = work.Outcome();
        } catch (const LinkError&) {
            outcome = work.Outcome();
            around.Err << "tqx7716: the pages before " << place()
                       << " are done; the one there may be half done. Run the command again.\n";
            throw;
        } catch (const WriteProtected& error) {
            throw Refusal(AnswerIsNo, std::string(error.what()) +
                                          ": clear bit WriteProtect of EEPROM3 (13h), `tqx7716 "
                                          "write EEPROM3 -WriteProtect`, or take its jumper off");
        }
    }
    for (const ChipDifference& each : outcome.Wrong) {
        context.Around.Out << EEPROMPlace(each.Address) << " is " << HexText(each.Second)
                           << "h, not " << HexText(each.First) << "h\n";
    }
    if (!outcome.Finished) {
        around.Err << "Stopped: the pages before " << place() << " are done. ";
    }
    around.Err << Counted(static_cast<std::size_t>(outcome.Pages), "page") << ' ' << did << ", "
               << outcome.PagesErased << " erased, "
               << Counted(static_cast<std::size_t>(outcome.BytesProgrammed), "byte")
               << " programmed, " << outcome.Wrong.size() << " wrong\n";
    return outcome.Finished && outcome.Wrong.empty() ? Done : AnswerIsNo;
}

/// Where a block begins.
struct BlockStart {
    bool InEEPROM;
    std::uint8_t High;
    std::uint8_t Low;
};

BlockStart StartIn(const std::string& text) {
    unsigned high = 0;
    unsigned low = 0;
    int used = 0;
    if (std::sscanf(text.c_str(), "%2x,%2x%n", &high, &low, &used) == 2 &&
        static_cast<std::size_t>(used) == text.size() && high >= eeprom::FirstHighByte &&
        high <= eeprom::LastHighByte) {
        return {true, static_cast<std::uint8_t>(high), static_cast<std::uint8_t>(low)};
    }
    return {false, 0, RegisterIn(text)};
}

/// Leaves the chip's pointer at the start: a register by its own value written back.
void SetBlockStart(tqx::Bench& bench, const BlockStart& start) {
    if (start.InEEPROM) {
        bench.Link->PrinterPortLink().EEPROMLink().ReadEEPROM(start.High, start.Low);
        return;
    }
    bench.Coms.WriteRegisterByte(start.Low, bench.Coms.ReadRegisterByte(start.Low));
}

void PutMode(BoardBus& bus, std::uint8_t mode) {
    bus.WriteByte(bus.SlaveAddress(), reg::EEPROM3,
                  static_cast<std::uint8_t>(mode | eeprom::ClockExtendBit));
}

std::string HexBytes(const FrameBytes& bytes, std::size_t first, std::size_t count) {
    std::string text;
    for (std::size_t i = first; i < first + count; ++i) {
        text += (text.empty() ? "" : " ") + HexText(bytes.at(i));
    }
    return text;
}

/// The data of a block, and its PEC where there is one. `covered`: the bytes that the PEC is over.
Status ShowBlock(Context& context, const std::vector<std::uint8_t>& data, bool pec,
                 std::size_t covered) {
    BoardBus& bus = context.Bench().Link->PrinterPortLink().BoardBus();
    const bool good = !pec || bus.PECOK();
    const FrameBytes trace = pec ? bus.PECTrace() : FrameBytes{};
    if (context.AsJson) {
        Json one{{"data", data}};
        if (pec) {
            one["trace"] =
                std::vector<int>(trace.begin(), trace.begin() + static_cast<long>(covered));
            one["pec"] = bus.PECResult();
            one["good"] = good;
        }
        context.Print(one);
    } else {
        std::string text;
        for (const std::uint8_t byte : data) {
            text += (text.empty() ? "" : " ") + HexText(byte);
        }
        context.Around.Out << text << (text.empty() ? "" : "\n");
        if (pec) {
            context.Around.Out << "PEC  " << HexBytes(trace, 0, covered) << '\n';
        }
    }
    if (pec) {
        context.Around.Err << "The PEC " << HexText(static_cast<std::uint8_t>(bus.PECResult()))
                           << "h is " << (good ? "good" : "wrong") << '\n';
    }
    return good ? Done : AnswerIsNo;
}

} // namespace

Status Dump(Context& context, const std::string& file) {
    context.Chip.Choose();
    const DumpChoice choice{.RAM = true, .EEPROM = !context.Chip.OnSMBus()};
    DumpOutcome outcome;
    {
        DumpOnTerminal door(context, choice.Rows());
        RegisterDump dump(context.Bench().Link, door);
        if (context.Chip.OnSMBus()) {
            context.Around.Err
                << "The EEPROM can only be had over a printer port: registers only.\n";
            dump.ReadRegister = [&](std::uint8_t reg) {
                return context.Bench().Coms.ReadRegisterByte(reg);
            };
        }
        outcome = dump.Run(choice, file);
    }
    if (!outcome.FileFailure.empty()) {
        throw FileError("cannot write " + file + ": " + outcome.FileFailure);
    }
    if (outcome.FailedReads > 0) {
        throw Refusal(LinkFailed, Counted(static_cast<std::size_t>(outcome.FailedReads), "byte") +
                                      " could not be read and stand as FF: " + outcome.LinkFailure);
    }
    context.Around.Err << (outcome.Finished ? "Dump added to " : "Dump stopped; see the end of ")
                       << file << '\n';
    return outcome.Finished ? Done : AnswerIsNo;
}

Status CompareImages(Context& context, const std::string& first, const std::string& second,
                     bool settingsOnly) {
    const ChipImage one = ImageOf(first);
    ChipImage other;
    if (second.empty()) {
        context.Chip.Choose();
        other = ReadLike(context, one);
    } else {
        other = ImageOf(second);
    }
    if (!(one.HasRegisters() && other.HasRegisters()) && !(one.HasEEPROM() && other.HasEEPROM())) {
        throw Refusal(WrongUse, "the two have nothing in common that could be compared");
    }
    std::vector<ChipDifference> differences = Differences(one, other);
    if (settingsOnly) {
        std::erase_if(differences, IsMeasured);
    }
    Json all = Json::array();
    for (const ChipDifference& each : differences) {
        PrintDifference(context, each, all);
    }
    if (context.AsJson) {
        context.Print(all);
    }
    const auto registers =
        static_cast<std::size_t>(std::ranges::count(differences, false, &ChipDifference::EEPROM));
    context.Around.Err << Counted(registers, "register") << " and "
                       << Counted(differences.size() - registers, "EEPROM byte") << " differ\n";
    return differences.empty() ? Done : AnswerIsNo;
}

Status ReadEEPROM(Context& context, const std::string& file) {
    return WorkOnEEPROM(context, "read", [&](EEPROMWork& work) {
        ChipImage image;
        work.Read(image);
        if (!work.Outcome().Finished) {
            return;
        }
        std::string content = IntelHex(image);
        if (!file.ends_with(".hex") && !file.ends_with(".ihex")) {
            content.clear();
            for (const auto& byte : image.EEPROM) {
                content += static_cast<char>(*byte);
            }
        }
        ReplaceFile(file, content);
    });
}

namespace {

ChipImage EEPROMImageOf(const std::string& file) {
    const ChipImage image = ImageOf(file);
    if (!image.HasEEPROM()) {
        throw Refusal(WrongUse, file + " has no EEPROM in it");
    }
    return image;
}

} // namespace

Status WriteEEPROM(Context& context, const std::string& file) {
    const ChipImage image = EEPROMImageOf(file);
    return WorkOnEEPROM(context, "verified", [&](EEPROMWork& work) { work.Write(image); });
}

Status VerifyEEPROM(Context& context, const std::string& file) {
    const ChipImage image = EEPROMImageOf(file);
    return WorkOnEEPROM(context, "verified", [&](EEPROMWork& work) { work.Verify(image); });
}

Status EraseEEPROM(Context& context) {
    return WorkOnEEPROM(context, "verified", [](EEPROMWork& work) { work.Erase(); });
}

Status ReadBlock(Context& context, const std::string& start, bool pec) {
    const BlockStart at = StartIn(start);
    context.Chip.Choose();
    context.Chip.NeedPrinterPort("a block");
    tqx::Bench& bench = context.Bench();
    const BurstScope burst(bench.Link->PrinterPortLink());
    BoardBus& bus = bench.Link->PrinterPortLink().BoardBus();
    if (at.InEEPROM) {
        PutMode(bus, eeprom::ReadBit);
    }
    SetBlockStart(bench, at);
    bus.UsePEC(pec);
    bool whole = true;
    bench.Link.Setup.Notice = [&](std::string_view /*title*/, std::string_view message) {
        whole = false;
        context.Around.Err << "tqx7716: " << message << '\n';
    };
    std::uint8_t dropped = 0;
    bus.BlockRead(0xAA, 0x0A, dropped);
    if (!whole) {
        return AnswerIsNo;
    }
    const FrameBytes frame = bus.BlockData();
    const std::size_t count = frame[1];
    return ShowBlock(context, {frame.begin() + 2, frame.begin() + 2 + static_cast<long>(count)},
                     pec, count + 2);
}

Status WriteBlock(Context& context, const std::string& start, const std::vector<std::string>& bytes,
                  bool pec) {
    constexpr std::size_t most = 32;
    const BlockStart at = StartIn(start);
    tqx::WriteBlock frame{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = NumberIn(bytes[i]);
        if (bytes.size() > most || byte.value_or(0x100) > 0xFF) {
            throw Refusal(WrongUse, "a block is 1 to 32 bytes, such as E6h, 0xE6 or 230");
        }
        frame.at(i + 3) = static_cast<std::uint8_t>(*byte);
    }
    context.Chip.Choose();
    context.Chip.NeedPrinterPort("a block");
    tqx::Bench& bench = context.Bench();
    BoardBus& bus = bench.Link->PrinterPortLink().BoardBus();
    if ((bus.ReadByte(bus.SlaveAddress(), reg::EEPROM3) & eeprom::WriteProtectBit) != 0) {
        throw Refusal(AnswerIsNo, "the EEPROM write protect bit is set (EEPROM3, 13h)");
    }
    bus.ByteDelay(0.001F);
    bus.UsePEC(pec);
    bus.EEPROMTarget(at.InEEPROM);
    PutMode(bus, eeprom::WriteBit);
    SetBlockStart(bench, at);
    bus.BlockWrite(static_cast<std::uint8_t>(bytes.size()), frame);
    if (at.InEEPROM) {
        PutMode(bus, eeprom::ReadBit);
    }
    bus.ByteDelay(0);
    bus.EEPROMTarget(false);
    context.Around.Err << Counted(bytes.size(), "byte") << " sent\n";
    return pec ? ShowBlock(context, {}, true, bytes.size() + 3) : Done;
}

} // namespace tqx::cli
