#include "simulated/simulated_board.h"

#include "faults/faulty_port.h"
#include "faults/faulty_smbus.h"
#include "simulated_port.h"
#include "simulated_smbus.h"

#include <link/link_server.h>
#include <link/port_link.h>

#include <string>
#include <utility>
#include <vector>

namespace tqx {

namespace {

class SimulatedSystem : public OSVersionInfo {
public:
    std::string BuildNumber() override { return "2222"; }
};

std::function<std::chrono::nanoseconds()> ClockOr(std::function<std::chrono::nanoseconds()> now) {
    if (now) {
        return now;
    }
    return [] { return std::chrono::steady_clock::now().time_since_epoch(); };
}

} // namespace

SimulatedBoard::Plug::Plug(ByteSlave& next, SimulatedBoard& board)
    : ForwardingSlave(next)
    , m_board(board) {}

bool SimulatedBoard::Plug::Start(std::uint8_t address) {
    if (!Plugged || !Powered) {
        return false;
    }
    m_board.m_chip.SetTime(m_board.m_now() - m_board.m_powerOn);
    return ForwardingSlave::Start(address);
}

SimulatedBoard::SimulatedBoard(SimulatedBoardOptions options)
    : m_now(ClockOr(std::move(options.Now)))
    , m_powerOn(m_now())
    , m_wiring(WiringOf(options.BoardMode))
    , m_address(options.SlaveAddress)
    , m_chip(options.Seed)
    , m_faults(options.Seed)
    , m_slave(m_memory, options.SlaveAddress)
    , m_faultySlave(m_slave, options.SlaveAddress, m_faults)
    , m_plug(m_faultySlave, *this)
    , m_trace(m_plug, m_now) {}

LinkFactory SimulatedBoard::Factory() {
    return [this](const LinkSetup& setup) {
        std::vector<std::unique_ptr<ParallelPort>> ports;
        ports.push_back(PrinterPort());
        return std::make_unique<PartsLinkServer>(
            std::make_unique<PortLink>(std::move(ports), setup), SMBus());
    };
}

std::function<std::unique_ptr<OSVersionInfo>()> SimulatedBoard::OSVersionInfoFactory() {
    return [] { return std::make_unique<SimulatedSystem>(); };
}

std::unique_ptr<ParallelPort> SimulatedBoard::PrinterPort() {
    return std::make_unique<FaultyPort>(std::make_unique<SimulatedPort>(m_trace, m_wiring, m_pacer),
                                        m_wiring, m_faults, m_pacer);
}

std::unique_ptr<SMBusLink> SimulatedBoard::SMBus() {
    return std::make_unique<FaultySMBus>(std::make_unique<SimulatedSMBus>(m_trace, m_pacer),
                                         m_faults, m_pacer);
}

double SimulatedBoard::ValueAt(ChipInput input) {
    return m_chip.ThePlant().Value(input, m_now() - m_powerOn);
}

void SimulatedBoard::SlaveAddress(std::uint8_t address) {
    m_address = address;
    m_slave.Address(address);
    m_faultySlave.Address(address);
}

void SimulatedBoard::BusHertz(double hertz) {
    m_hertz = hertz;
    m_pacer.Hertz(hertz);
}

void SimulatedBoard::Powered(bool powered) {
    if (powered && !m_plug.Powered) {
        m_chip.Reset();
        m_powerOn = m_now();
    }
    m_plug.Powered = powered;
}

} // namespace tqx
