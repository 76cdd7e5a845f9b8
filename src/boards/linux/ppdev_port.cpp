#include "ppdev_port.h"

#include "kernel_errors.h"

#include <link/board_wiring.h>
#include <link/link_error.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tqx {

namespace {

constexpr std::string_view PortsFolder = "/proc/sys/dev/parport";

/// From here on a delay is long enough to give the processor to others.
constexpr std::chrono::microseconds ShortestSleep{500};
constexpr std::chrono::milliseconds ClaimPause{5};

/// Comes back after at least `time`, without giving the thread up: the waits between two line
/// states are far shorter than the shortest sleep of an operating system.
void ShortWait(std::chrono::nanoseconds time) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + time;
    while (Clock::now() < end) {
    }
}

std::string FolderOf(const std::string& port) {
    return std::string(PortsFolder) + "/" + port;
}

/// A held port is this program's for a transfer; anyone who holds it longer is told by name.
LinkError Busy(const std::string& node, const std::string& holder) {
    const std::string what = "cannot claim " + node;
    if (holder == "lp") {
        return {what, "the printer driver lp is using it",
                "Wait for the print job to end, or unload the driver: sudo modprobe -r lp."};
    }
    if (holder.starts_with("ppdev")) {
        return {what, "another program is using it",
                "Close the other program that works on this port, such as a second console."};
    }
    return {what, (holder.empty() ? "another driver" : "the driver " + holder) + " is using it",
            "Wait until it is done, or unload the driver."};
}

/// The clock lines that are high, of either wiring, each by its bit of the data register.
constexpr unsigned ClocksHigh(std::uint8_t lines) {
    constexpr unsigned direct = DirectWiring.DataLowClockHigh;
    constexpr unsigned inverted = InvertedWiring.DataHighClockLow;
    return (lines & direct) | (~unsigned{lines} & inverted);
}

/// The first of the two decimal numbers of a port's file; 0 where it is none of a port.
std::uint16_t BaseAddressIn(std::string_view text) {
    const auto number = WholeNumber(text.substr(0, text.find_first_of(" \t")), 10).value_or(0);
    return std::in_range<std::uint16_t>(number) ? static_cast<std::uint16_t>(number)
                                                : std::uint16_t{0};
}

} // namespace

PpdevPort::PpdevPort(KernelFace& kernel, std::string name, std::uint16_t baseAddress)
    : m_kernel(kernel)
    , m_name(std::move(name))
    , m_node("/dev/" + m_name)
    , m_baseAddress(baseAddress) {}

PpdevPort::~PpdevPort() {
    if (m_claimed) {
        try {
            Release();
        } catch (const LinkError&) {
            // There is nobody left to tell.
        }
    }
}

void PpdevPort::WriteData(std::uint8_t value) {
    KeepClockLow(value);
    Expect(m_file ? m_kernel.PortWriteData(m_file->File(), value) : KernelAnswer{ENODEV},
           "write to");
    NoteClock(value);
    m_lines = value;
}

/// Waits where `value` would let the clock rise too early.
void PpdevPort::KeepClockLow(std::uint8_t value) const {
    if (m_lines && (ClocksHigh(value) & ~ClocksHigh(*m_lines)) != 0) {
        ShortWait(m_clockFell + ShortestClockLow - std::chrono::steady_clock::now());
    }
}

void PpdevPort::NoteClock(std::uint8_t value) {
    if (m_lines && (ClocksHigh(*m_lines) & ~ClocksHigh(value)) != 0) {
        m_clockFell = std::chrono::steady_clock::now();
    }
}

std::uint8_t PpdevPort::ReadStatus() {
    return static_cast<std::uint8_t>(
        Expect(m_file ? m_kernel.PortReadStatus(m_file->File()) : KernelAnswer{ENODEV}, "read"));
}

void PpdevPort::Hold(bool hold) {
    if (hold == m_claimed) {
        return;
    }
    if (hold) {
        Claim();
    } else {
        Release();
    }
}

void PpdevPort::Delay(std::chrono::nanoseconds time) {
    if (time < ShortestSleep) {
        ShortWait(time);
    } else {
        m_kernel.Sleep(time);
    }
}

/// The kernel lets a claim sleep for as long as the other user likes, and meanwhile keeps every
/// other ppdev program waiting, even the one that is to let the port go. So the claim is asked for
/// only while nobody is seen to hold the port.
///
/// A claim that was interrupted is repeated. The first one still stands in the kernel's queue, and
/// would be handed the port later with nobody noticing. Closing the node takes it out.
void PpdevPort::Claim() {
    const std::chrono::nanoseconds end = m_kernel.Now() + ClaimLimit;
    for (;;) {
        Open();
        const std::string holder = OtherHolder();
        if (m_kernel.Now() >= end) {
            throw Busy(m_node, holder);
        }
        if (!holder.empty()) {
            m_kernel.Sleep(ClaimPause);
            continue;
        }
        const KernelAnswer claimed = m_kernel.PortClaim(m_file->File());
        if (claimed.Error == EINTR) {
            Close();
            continue;
        }
        Expect(claimed, "claim");
        break;
    }
    m_claimed = true;
    SetMode();
}

/// The kernel keeps both settings for this file over release and claim.
void PpdevPort::SetMode() {
    if (m_modeSet) {
        return;
    }
    try {
        Expect(m_kernel.PortCompatible(m_file->File()), "set the mode of");
        Expect(m_kernel.PortForward(m_file->File()), "set the direction of");
    } catch (...) {
        Close();
        throw;
    }
    m_modeSet = true;
}

void PpdevPort::Release() {
    m_claimed = false;
    m_lines.reset();
    if (m_file) {
        Expect(m_kernel.PortRelease(m_file->File()), "release");
    }
}

void PpdevPort::Open() {
    if (m_file) {
        return;
    }
    const KernelAnswer opened = m_kernel.OpenNode(m_node);
    if (opened.Error != 0) {
        throw CannotOpen(m_kernel, m_node, "ppdev", opened.Error);
    }
    m_file = std::make_unique<OpenFile>(m_kernel, static_cast<int>(opened.Value));
}

/// Releases the port as well.
void PpdevPort::Close() {
    m_file.reset();
    m_claimed = false;
    m_modeSet = false;
    m_lines.reset();
}

/// Empty while nobody holds the port. This program does not, so it is always another.
std::string PpdevPort::OtherHolder() {
    const auto holder = ReadSmallFile(m_kernel, FolderOf(m_name) + "/devices/active");
    return holder && *holder != "none" ? *holder : "";
}

/// Gives the value of an answer, or raises what went wrong. A port that has gone is closed at
/// once, as the kernel waits for that, and is opened anew by the next claim.
unsigned long PpdevPort::Expect(const KernelAnswer& answer, const char* action) {
    if (answer.Error == 0) {
        return answer.Value;
    }
    if (MeansGone(answer.Error)) {
        Close();
    }
    throw Failure("cannot " + std::string(action) + " " + m_node, answer.Error);
}

std::vector<int> PrinterPortNumbers(KernelFace& kernel) {
    std::vector<int> numbers;
    for (const std::string& entry : kernel.List(std::string(PortsFolder))) {
        if (const auto number = NumberAfter("parport", entry)) {
            numbers.push_back(*number);
        }
    }
    std::ranges::sort(numbers);
    return numbers;
}

std::vector<std::unique_ptr<ParallelPort>> FindPrinterPorts(KernelFace& kernel) {
    std::vector<std::unique_ptr<ParallelPort>> ports;
    for (const int number : PrinterPortNumbers(kernel)) {
        const std::string name = "parport" + std::to_string(number);
        const auto text = ReadSmallFile(kernel, FolderOf(name) + "/base-addr").value_or("");
        const std::uint16_t baseAddress = BaseAddressIn(text);
        ports.push_back(std::make_unique<PpdevPort>(kernel, name, baseAddress));
    }
    return ports;
}

} // namespace tqx
