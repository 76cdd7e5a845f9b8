#include "link/port_link.h"

#include "printer_port/board_lines.h"
#include "printer_port/port_board_bus.h"
#include "printer_port/port_eeprom.h"

#include <utility>

namespace tqx {

struct PortLink::Parts {
    Parts(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
        : Board(std::move(ports), setup)
        , Bus(Board, Options, setup)
        , EEPROM(Board, Bus, Options) {}

    BoardOptions Options;
    BoardLines Board;
    PortBoardBus Bus;
    PortEEPROM EEPROM;
};

PortLink::PortLink(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
    : m_parts(std::make_unique<Parts>(std::move(ports), setup)) {}

PortLink::~PortLink() = default;

std::uint8_t PortLink::PortCount() {
    return m_parts->Board.Ports.Count();
}

void PortLink::PortIndex(std::uint8_t index) {
    m_parts->Board.Ports.Select(index);
}

std::uint16_t PortLink::PortAddress() {
    return m_parts->Board.Ports.PortAddress();
}

void PortLink::BurstMode(bool on) {
    m_parts->Board.Ports.Burst(on);
}

BoardBus& PortLink::BoardBus() {
    return m_parts->Bus;
}

EEPROMLink& PortLink::EEPROMLink() {
    return m_parts->EEPROM;
}

const BoardOptions& PortLink::Options() const {
    return m_parts->Options;
}

} // namespace tqx
