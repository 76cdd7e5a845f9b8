#include "command.h"

#include "commands.h"

#include <jobs/files.h>
#include <link/link_error.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>

namespace tqx::cli {
namespace {

/// Stands for the minus of "-12V" and "-WriteProtect", which are no options.
constexpr char Minus = '\x01';

/// All that can stand on the command line, filled by the parser.
struct Arguments {
    tqx::cli::Where Where;
    bool AsJson = false;
    std::vector<std::string> Words; // registers, values, bytes
    std::string First;              // the file, register or start that a command begins with
    std::string Second;
    WatchChoice Watch;
    bool PEC = false;
    bool SettingsOnly = false;
    std::function<Status(Context&)> Command;
};

void Restore(std::string& word) {
    std::ranges::replace(word, Minus, '-');
}

/// Adds the commands. Each stores what is to be run.
class Commands {
public:
    Commands(CLI::App& app, Arguments& arguments)
        : m_app(&app)
        , m(arguments) {}

    CLI::App* Add(const std::string& name, const std::string& text,
                  std::function<Status(Context&)> run) {
        CLI::App* const command = m_app->add_subcommand(name, text);
        command->fallthrough();
        if (run) {
            command->callback([&into = m, run = std::move(run)] { into.Command = run; });
        }
        return command;
    }

    void File(CLI::App* command, const std::string& text) {
        command->add_option("FILE", m.First, text)->required();
    }

private:
    CLI::App* m_app;
    Arguments& m;
};

void AddWhere(CLI::App& app, Where& where) {
    const std::string group = "Where the chip is (it is searched for with none of these)";
    app.add_flag("--simulated", where.Simulated,
                 "A simulated board; with =FILE one that FILE keeps from call to call")
        ->group(group);
    app.add_option("--printer-port", where.PrinterPort, "A port: 378h or /dev/parport0")
        ->group(group);
    app.add_flag("--inverted", where.Inverted, "The board has the inverted wiring")->group(group);
    app.add_flag("--smbus", where.SMBus, "The SMBus; with =/dev/i2c-1 this adapter alone")
        ->group(group);
    app.add_option("--address", where.Address, "58h, 5Ah, 5Ch; or 2Ch, 2Dh, 2Eh")->group(group);
    const std::string simulated = "Of the simulated board";
    app.add_option("--fault", where.Faults,
                   "A fault such as link-fails or no-answer:3 (every third time); can be repeated")
        ->group(simulated)
        ->allow_extra_args(false);
    app.add_option("--seed", where.Seed, "What its measured values follow")->group(simulated);
    app.add_option("--bus-hertz", where.BusHertz, "Clock rate of its bus; 0 is as fast as possible")
        ->group(simulated)
        ->check(CLI::Range(0.0, 1e9));
}

void AddRegisterCommands(Commands commands, Arguments& m) {
    commands.Add("find", "Finds every chip; status 1 when there is none", FindChips);
    commands
        .Add("read", "Reads registers, by name, beginning of a name or number",
             [&m](Context& context) { return ReadRegisters(context, m.Words); })
        ->add_option("REGISTER", m.Words, "\"+12V HighLim\", 2Eh, 0x2E or 46")
        ->required();
    CLI::App* const write =
        commands.Add("write", "Writes a register and reads it back; status 1 when it kept another",
                     [&m](Context& context) { return WriteRegister(context, m.First, m.Words); });
    write->add_option("REGISTER", m.First, "\"+12V HighLim\", 46h, 0x46 or 70")->required();
    write->add_option("VALUE", m.Words, "E6h, 11.4V, or bits by legend: +Monitor -IntEnable")
        ->required();
    commands.Add("initialize", "Writes what Initialize of the console writes", Initialize);
}

void AddChannelCommands(Commands commands, Arguments& m) {
    commands.Add("channels", "Shows every channel with its limits and its alarm", ShowChannels);
    CLI::App* const watch =
        commands.Add("watch", "Shows or records the channels until it is stopped",
                     [&m](Context& context) { return Watch(context, m.Watch); });
    watch->add_option("--every", m.Watch.Every, "tick, 500ms, 1s, 5m, 2h (default 1s)");
    watch->add_option("--for", m.Watch.For, "How long");
    watch->add_option("--csv", m.Watch.CSV, "Records to this file, with mean, minimum, maximum");
    watch->add_flag("--until-alarm", m.Watch.UntilAlarm, "Ends at an alarm, with status 1");
    CLI::App* const limits = commands.Add("limits", "Shows or writes all limits", nullptr);
    limits->require_subcommand(1);
    Commands of(*limits, m);
    of.Add("show", "Shows them", ShowLimits);
    of.Add("defaults", "Writes the limits of the automatic initialisation", WriteDefaultLimits);
    of.File(of.Add("save", "Saves them to a file",
                   [&m](Context& context) { return SaveLimits(context, m.First); }),
            "A file of JSON");
    of.File(of.Add("load", "Writes them from a file, and verifies them",
                   [&m](Context& context) { return LoadLimits(context, m.First); }),
            "A file of JSON");
}

void AddMemoryCommands(Commands commands, Arguments& m) {
    commands.File(commands.Add("dump", "Appends all registers and the EEPROM to a text file",
                               [&m](Context& context) { return Dump(context, m.First); }),
                  "The file");
    CLI::App* const compare = commands.Add(
        "compare", "Compares two dumps, or a dump with the chip; status 1 when they differ",
        [&m](Context& context) {
            return CompareImages(context, m.First, m.Second, m.SettingsOnly);
        });
    compare->add_option("A", m.First, "A dump or an image of the EEPROM")->required();
    compare->add_option("B", m.Second, "Another; the chip when it is left out");
    compare->add_flag("--settings", m.SettingsOnly, "Leaves out what the chip measures");

    CLI::App* const eeprom = commands.Add("eeprom", "Reads, writes and erases the EEPROM", nullptr);
    eeprom->require_subcommand(1);
    Commands of(*eeprom, m);
    of.File(of.Add("read", "Reads it to a file",
                   [&m](Context& context) { return ReadEEPROM(context, m.First); }),
            "Intel HEX when its name ends in .hex, else binary");
    of.File(of.Add("write", "Writes what differs, and verifies it",
                   [&m](Context& context) { return WriteEEPROM(context, m.First); }),
            "Binary, Intel HEX or a dump");
    of.File(of.Add("verify", "Compares it with a file; status 1 when they differ",
                   [&m](Context& context) { return VerifyEEPROM(context, m.First); }),
            "Binary, Intel HEX or a dump");
    of.Add("erase", "Erases every page that is not blank", EraseEEPROM);

    CLI::App* const block = commands.Add("block", "Moves blocks of up to 32 bytes", nullptr);
    block->require_subcommand(1);
    Commands ofBlock(*block, m);
    CLI::App* const read = ofBlock.Add("read", "Reads 32 bytes", [&m](Context& context) {
        return ReadBlock(context, m.First, m.PEC);
    });
    CLI::App* const write = ofBlock.Add("write", "Writes 1 to 32 bytes", [&m](Context& context) {
        return WriteBlock(context, m.First, m.Words, m.PEC);
    });
    for (CLI::App* const each : {read, write}) {
        each->add_option("START", m.First, "A register, or an EEPROM address as 80,11")->required();
        each->add_flag("--pec", m.PEC, "With packet error checking, and its trace");
    }
    write->add_option("BYTE", m.Words, "E6h, 0xE6 or 230")->required();
}

/// For completion: the names of the registers without the blanks, which do not count.
int ListNames(std::ostream& out) {
    for (const RegisterEntry& entry : RegisterMap) {
        std::string name(entry.Caption);
        std::erase(name, ' ');
        out << name << '\n';
    }
    return Done;
}

/// Runs the command on its chip, and keeps the board whatever comes.
Status RunOnChip(const Arguments& arguments, Surroundings& around) {
    ChipAtHand chip(arguments.Where, around);
    Context context{around, arguments.AsJson, chip};
    try {
        const Status status = arguments.Command(context);
        chip.Keep();
        return status;
    } catch (const FileError&) {
        throw;
    } catch (const std::exception&) {
        chip.Keep();
        throw;
    }
}

} // namespace

int Run(const std::vector<std::string>& arguments, Surroundings& around) {
    CLI::App app("Works with a TQX7716 hardware monitor from the shell and from scripts.",
                 "tqx7716");
    Arguments given;
    bool names = false;
    AddWhere(app, given.Where);
    app.add_flag("--json", given.AsJson, "Data as JSON");
    app.add_flag("--names", names, "Lists the names of the registers")->group("");
    app.set_version_flag("--version", "tqx7716 " TQX_VERSION);
    app.require_subcommand(0, 1);
    Commands commands(app, given);
    AddRegisterCommands(commands, given);
    AddChannelCommands(commands, given);
    AddMemoryCommands(commands, given);

    std::vector<std::string> words;
    for (std::string word : arguments) {
        if (word.size() > 1 && word[0] == '-' && word[1] != '-' && word != "-h") {
            word[0] = Minus;
        }
        words.insert(words.begin(), word); // the parser takes them from the end
    }
    try {
        app.parse(words);
        if (names) {
            return ListNames(around.Out);
        }
        if (!given.Command) {
            throw Refusal(WrongUse, "which command? See tqx7716 --help.");
        }
        std::ranges::for_each(given.Words, Restore);
        for (std::string* const word : {&given.First, &given.Second, &given.Watch.CSV}) {
            Restore(*word);
        }
        const Status status = RunOnChip(given, around);
        if (!around.Out.flush()) {
            throw FileError("cannot write the data: the disk is full, or their reader has gone");
        }
        return status;
    } catch (const CLI::ParseError& error) {
        return app.exit(error, around.Out, around.Err) == 0 ? Done : WrongUse;
    } catch (const LinkError& error) {
        around.Err << "tqx7716: " << error.what() << ". " << error.Advice() << '\n';
        return LinkFailed;
    } catch (const Refusal& refusal) {
        around.Err << "tqx7716: " << refusal.what() << '\n';
        return refusal.Code;
    } catch (const std::exception& error) {
        around.Err << "tqx7716: " << error.what() << '\n';
        return WrongUse;
    }
}

ProgressBar::~ProgressBar() {
    if (m_around.Terminal) {
        m_around.Err << "\r\x1b[K" << std::flush;
    }
}

void ProgressBar::Show(int done) {
    constexpr int width = 40;
    if (!m_around.Terminal || m_all == 0) {
        return;
    }
    const int tenths = done * 1000 / m_all;
    const auto filled = static_cast<std::size_t>(done * width / m_all);
    m_around.Err << "\r[" << std::string(filled, '#') << std::string(width - filled, ' ') << "] "
                 << tenths / 10 << '.' << tenths % 10 << " %" << std::flush;
}

} // namespace tqx::cli
