#pragma once

#include "chip_at_hand.h"
#include "texts.h"

#include <chrono>
#include <string>
#include <vector>

namespace tqx::cli {

/// What every command works with. The chip is there once it has been asked for.
struct Context {
    Surroundings& Around;
    bool AsJson = false;
    ChipAtHand& Chip;

    tqx::Bench& Bench() { return Chip.Bench(); }

    /// Data as JSON, in one line for each call.
    void Print(const Json& json) { Around.Out << json.dump() << '\n'; }
};

/// A bar on a terminal while it lives. Elsewhere nothing.
class ProgressBar {
public:
    ProgressBar(const Surroundings& around, int all)
        : m_around(around)
        , m_all(all) {}

    ~ProgressBar();

    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void Show(int done);

private:
    const Surroundings& m_around;
    int m_all;
};

/// @name The commands, each with its exit status
/// What the user gave is looked at before the chip is chosen, so that nothing is sent for wrong
/// use.
/// @{
Status FindChips(Context& context);
Status ReadRegisters(Context& context, const std::vector<std::string>& registers);
/// `values`: one number or quantity, or any number of "+bit" and "-bit".
Status WriteRegister(Context& context, const std::string& reg,
                     const std::vector<std::string>& values);
Status ShowChannels(Context& context);

struct WatchChoice {
    std::string Every = "1s";
    std::string For;
    std::string CSV;
    bool UntilAlarm = false;
};

Status Watch(Context& context, const WatchChoice& choice);
Status ShowLimits(Context& context);
Status WriteDefaultLimits(Context& context);
Status SaveLimits(Context& context, const std::string& file);
Status LoadLimits(Context& context, const std::string& file);
Status Initialize(Context& context);
Status Dump(Context& context, const std::string& file);
/// `second` empty: the chip.
Status CompareImages(Context& context, const std::string& first, const std::string& second,
                     bool settingsOnly);
Status ReadEEPROM(Context& context, const std::string& file);
Status WriteEEPROM(Context& context, const std::string& file);
Status VerifyEEPROM(Context& context, const std::string& file);
Status EraseEEPROM(Context& context);
/// `start`: a register, or an EEPROM address as "80,11".
Status ReadBlock(Context& context, const std::string& start, bool pec);
Status WriteBlock(Context& context, const std::string& start, const std::vector<std::string>& bytes,
                  bool pec);
/// @}

} // namespace tqx::cli
