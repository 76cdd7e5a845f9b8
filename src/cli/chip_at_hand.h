#pragma once

#include "command.h"

#include <device/bench.h>
#include <linuxboard/linux_board.h>
#include <simulated/simulated_board.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tqx::cli {

/// Where the chip is looked for, as the user gave it.
struct Where {
    /// A simulated board: "true", or the file that keeps it. Empty: the machine's own ports.
    std::string Simulated;
    std::vector<std::string> Faults;
    std::uint32_t Seed = 1;
    double BusHertz = 0;
    /// "378h" or "/dev/parport0".
    std::string PrinterPort;
    bool Inverted = false;
    /// "true", or an adapter as "/dev/i2c-1".
    std::string SMBus;
    /// In 8-bit or in 7-bit form.
    std::string Address;
};

/// A chip that answered.
struct FoundChip {
    bool OnSMBus;
    /// In the form of its medium.
    std::uint8_t Address;
    std::uint8_t PortIndex = 0;
    bool Inverted = false;
    /// Base address of the printer port, or of the SMBus controller where it is known.
    std::uint32_t Base = 0;
};

/// The board behind the link and the chip on it. Everything in Where that cannot be is refused
/// before anything is sent.
class ChipAtHand {
public:
    ChipAtHand(const Where& where, Surroundings& around);
    ~ChipAtHand();

    /// Looks on both media, or where the user said.
    std::vector<FoundChip> Find();

    /// Chooses the one chip that is there, and learns the fan divisors. Refused when there is none,
    /// or several.
    void Choose();

    /// Keeps a simulated board in its file.
    void Keep();

    tqx::Bench& Bench() { return *m_bench; }

    bool OnSMBus() const { return m_onSMBus; }

    bool Simulated() const { return m_simulated != nullptr; }

    /// Refuses what only the printer port's board can do.
    void NeedPrinterPort(const std::string& what) const;

private:
    void MakeSimulated();
    void MakeReal();
    void FindOn(bool smbus, std::vector<FoundChip>& finds, std::string& notes);
    bool Wanted(const FoundChip& find) const;
    void Lock(const std::string& place);

    const Where& m_where;
    Surroundings& m_around;
    std::unique_ptr<sim::SimulatedBoard> m_simulated;
    std::unique_ptr<LinuxBoard> m_real;
    std::unique_ptr<tqx::Bench> m_bench;
    std::optional<unsigned> m_port;        // base address
    std::optional<std::uint8_t> m_address; // 7-bit form
    std::optional<int> m_node;             // index of the port that was named by its node
    std::chrono::nanoseconds m_age{0};     // of a simulated board
    int m_lock = -1;
    bool m_onSMBus = false;
};

/// A line for people: "58h on the printer port 378h, direct wiring".
std::string Sentence(const FoundChip& chip);

} // namespace tqx::cli
