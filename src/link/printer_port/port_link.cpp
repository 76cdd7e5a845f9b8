#include "link/port_link.h"

#include "printer_port/eeprom_coms.h"
#include "printer_port/port_board_bus.h"
#include "printer_port/printer_ports.h"

#include <utility>

namespace tqx {

namespace {

/// EEPROMLink on the lines of a printer port, for the chip that the board's bus is set to. Pacing
/// EEPROM writes is the caller's.
class PortEEPROM : public EEPROMLink {
public:
    PortEEPROM(PrinterPorts& ports, BoardBus& bus)
        : m_ports(ports)
        , m_bus(bus) {}

    std::uint8_t ReadEEPROM(std::uint8_t high, std::uint8_t low) override {
        return m_ports.Transfer(
            [&](LineLayer& lines) { return ComsAt(lines, high, low).ReadEEPROM(); });
    }

    void WriteEEPROM(std::uint8_t high, std::uint8_t low, std::uint8_t value) override {
        m_ports.Transfer([&](LineLayer& lines) {
            EEPROMComs coms = ComsAt(lines, high, low);
            coms.Data(value);
            coms.WriteEEPROM();
        });
    }

    /// A write like any other; the chip takes it for an erase while register 13h says so.
    std::uint8_t ErasePage(std::uint8_t high, std::uint8_t low, std::uint8_t zero) override {
        WriteEEPROM(high, low, zero);
        return 0;
    }

    void EEPROMWait(bool) override {}

    void EEPROMDelay(std::int16_t) override {}

private:
    EEPROMComs ComsAt(LineLayer& lines, std::uint8_t high, std::uint8_t low) {
        EEPROMComs coms(lines);
        coms.SlaveAddress(m_bus.SlaveAddress());
        coms.HighByte(high);
        coms.LowByte(low);
        return coms;
    }

    PrinterPorts& m_ports;
    BoardBus& m_bus;
};

} // namespace

struct PortLink::Parts {
    Parts(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
        : Ports(std::move(ports), setup)
        , Bus(Ports, setup)
        , EEPROM(Ports, Bus) {}

    PrinterPorts Ports;
    PortBoardBus Bus;
    PortEEPROM EEPROM;
};

PortLink::PortLink(std::vector<std::unique_ptr<ParallelPort>> ports, const LinkSetup& setup)
    : m_parts(std::make_unique<Parts>(std::move(ports), setup)) {}

PortLink::~PortLink() = default;

std::uint8_t PortLink::PortCount() {
    return m_parts->Ports.Count();
}

void PortLink::PortIndex(std::uint8_t index) {
    m_parts->Ports.Select(index);
}

std::uint16_t PortLink::PortAddress() {
    return m_parts->Ports.PortAddress();
}

void PortLink::BurstMode(bool on) {
    m_parts->Ports.Burst(on);
}

BoardBus& PortLink::BoardBus() {
    return m_parts->Bus;
}

EEPROMLink& PortLink::EEPROMLink() {
    return m_parts->EEPROM;
}

} // namespace tqx
