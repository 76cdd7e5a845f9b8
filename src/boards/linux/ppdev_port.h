#pragma once

#include "kernel_files.h"
#include "linuxboard/kernel_face.h"

#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tqx {

/// The shortest time for which the clock line is low. The one clock that has no bit delay ahead of
/// it, that of a refused byte, would be shorter than the bus allows (4.7 us) on a fast machine.
inline constexpr std::chrono::microseconds ShortestClockLow{5};

/// How long a claim waits for another user of the port. Longer than a printer needs for a
/// character, short enough that the program is not taken for dead.
inline constexpr std::chrono::milliseconds ClaimLimit{500};

/// A printer port of this machine, shared with the kernel's other users of it: it is theirs
/// whenever it is not held. What goes on for longer than one call stands between Hold(true) and
/// Hold(false).
class PpdevPort : public ParallelPort {
public:
    /// `name` as the kernel has it: "parport0". Touches nothing.
    PpdevPort(KernelFace& kernel, std::string name, std::uint16_t baseAddress);
    ~PpdevPort() override;

    std::uint16_t BaseAddress() override { return m_baseAddress; }

    void WriteData(std::uint8_t value) override;
    std::uint8_t ReadStatus() override;
    /// True opens the node, if need be, and claims the port; raises LinkError when another user
    /// keeps it past ClaimLimit, and names him. False releases it.
    void Hold(bool hold) override;
    void Delay(std::chrono::nanoseconds time) override;

private:
    void Claim();
    void Release();
    void Open();
    void Close();
    void SetMode();
    void KeepClockLow(std::uint8_t value) const;
    void NoteClock(std::uint8_t value);
    std::string OtherHolder();
    unsigned long Expect(const KernelAnswer& answer, const char* action);

    KernelFace& m_kernel;
    std::string m_name;
    std::string m_node;
    std::uint16_t m_baseAddress;
    std::unique_ptr<OpenFile> m_file;
    bool m_claimed = false;
    bool m_modeSet = false;
    std::optional<std::uint8_t> m_lines;
    std::chrono::steady_clock::time_point m_clockFell;
};

/// The numbers of the printer ports that the kernel has, in rising order.
std::vector<int> PrinterPortNumbers(KernelFace& kernel);

/// The ports themselves, in that order.
std::vector<std::unique_ptr<ParallelPort>> FindPrinterPorts(KernelFace& kernel);

} // namespace tqx
