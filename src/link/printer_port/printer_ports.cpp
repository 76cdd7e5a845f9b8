#include "printer_port/printer_ports.h"

#include "link/link_error.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <limits>
#include <string>
#include <utility>

namespace tqx {

namespace {

std::string Hex(unsigned address) {
    char text[12];
    std::snprintf(text, sizeof text, "%Xh", address);
    return text;
}

LinkError NoPorts() {
    return {"cannot reach the evaluation board", "this machine has no printer port",
            "Fit a printer port or load its driver and start the program again, or use the SMBus."};
}

constexpr std::uint16_t StatusOf(std::uint16_t base) {
    return static_cast<std::uint16_t>(base + 1);
}

} // namespace

PrinterPorts::Use::Use(PrinterPorts& ports, Slot& slot)
    : m_ports(ports)
    , m_slot(slot)
    , m_errors(std::uncaught_exceptions()) {
    if (!m_slot.Held) {
        m_slot.Port->Hold(true);
        m_slot.Held = true;
    }
    ++m_slot.Users;
}

PrinterPorts::Use::~Use() {
    --m_slot.Users;
    const bool failed = std::uncaught_exceptions() > m_errors;
    if (m_slot.Users == 0 && (failed || !m_ports.Kept(m_slot))) {
        LetGo(m_slot);
    }
}

PrinterPorts::PrinterPorts(std::vector<std::unique_ptr<ParallelPort>> ports,
                           const LinkSetup& setup) {
    for (std::unique_ptr<ParallelPort>& port : ports) {
        m_slots.emplace_back(std::move(port), setup);
    }
}

std::uint8_t PrinterPorts::Count() const {
    constexpr std::size_t most = std::numeric_limits<std::uint8_t>::max();
    return static_cast<std::uint8_t>(std::min(m_slots.size(), most));
}

void PrinterPorts::Select(std::uint8_t index) {
    if (m_slots.empty()) {
        return;
    }
    if (index >= Count()) {
        throw LinkError("cannot select printer port number " + std::to_string(index),
                        "this machine has " + std::to_string(Count()),
                        "Search for the chip again and choose it from the list.");
    }
    Select(m_slots[index]);
}

void PrinterPorts::SelectAddress(std::uint16_t address) {
    if (m_slots.empty()) {
        return;
    }
    Slot* const slot = Find(address);
    if (slot == nullptr) {
        throw LinkError("cannot select the printer port at " + Hex(address),
                        "this machine has no port there",
                        "Search for the chip again and choose it from the list.");
    }
    Select(*slot);
}

void PrinterPorts::Burst(bool on) {
    m_burst = on;
    for (Slot& slot : m_slots) {
        if (slot.Users == 0 && !Kept(slot)) {
            LetGo(slot);
        }
    }
}

void PrinterPorts::Wiring(const BoardWiring& wiring) {
    for (Slot& slot : m_slots) {
        slot.Lines.Wiring(wiring);
        slot.Parked = false;
    }
}

void PrinterPorts::Write(std::uint16_t port, std::uint8_t value) {
    Slot* const slot = Find(port);
    if (slot == nullptr) {
        throw m_slots.empty() ? NoPorts()
                              : LinkError("cannot write to port address " + Hex(port),
                                          "it is not the data register of a printer port",
                                          "Write to the base address of a printer port, such as " +
                                              Hex(PortAddress()) + ".");
    }
    const Use use(*this, *slot);
    slot->Port->WriteData(value);
}

std::uint8_t PrinterPorts::Read(std::uint16_t port) {
    Slot* const slot = Find(static_cast<std::uint16_t>(port - 1));
    if (slot == nullptr) {
        throw m_slots.empty()
            ? NoPorts()
            : LinkError("cannot read port address " + Hex(port),
                        "it is not the status register of a printer port",
                        "Read the address after the base address of a printer port, such as " +
                            Hex(StatusOf(PortAddress())) + ".");
    }
    const Use use(*this, *slot);
    return slot->Port->ReadStatus();
}

std::uint16_t PrinterPorts::PortAddress() {
    return m_slots.empty() ? 0 : Selected().Port->BaseAddress();
}

PrinterPorts::Slot& PrinterPorts::Selected() {
    if (m_slots.empty()) {
        throw NoPorts();
    }
    return m_slots[m_selected];
}

/// The selected port comes first: ports that hang on other buses may share an address.
PrinterPorts::Slot* PrinterPorts::Find(std::uint16_t address) {
    const auto matches = [address](const Slot& slot) {
        return slot.Port->BaseAddress() == address;
    };
    if (!m_slots.empty() && matches(Selected())) {
        return &Selected();
    }
    const auto slot = std::ranges::find_if(m_slots, matches);
    return slot == m_slots.end() ? nullptr : &*slot;
}

void PrinterPorts::Select(Slot& slot) {
    Slot& before = Selected();
    m_selected = static_cast<std::size_t>(&slot - m_slots.data());
    if (before.Users == 0 && !Kept(before)) {
        LetGo(before);
    }
}

bool PrinterPorts::Kept(const Slot& slot) const {
    return m_burst && &slot == &m_slots[m_selected];
}

/// A port that cannot be let go is told by the next transfer on it, if it matters at all.
void PrinterPorts::LetGo(Slot& slot) noexcept {
    if (!std::exchange(slot.Held, false)) {
        return;
    }
    try {
        slot.Port->Hold(false);
    } catch (...) {
    }
}

/// Leaves both lines high and every slave idle.
void PrinterPorts::Park(Slot& slot) {
    slot.Lines.ParkLines();
    slot.Parked = true;
}

/// The error that is on its way out already tells the user what is wrong; a second one would add
/// nothing.
void PrinterPorts::TryToPark(Slot& slot) noexcept {
    try {
        Park(slot);
    } catch (...) {
    }
}

} // namespace tqx
