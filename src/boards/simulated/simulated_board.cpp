#include "simulated/simulated_board.h"

#include "bus/bus_pacer.h"
#include "bus/chip_slave.h"
#include "chip/plant.h"
#include "faults/faulty_media.h"
#include "faults/faulty_slave.h"
#include "simulated_port.h"
#include "simulated_smbus.h"

#include <link/board_wiring.h>
#include <link/link_server.h>
#include <link/port_link.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace tqx::sim {

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

/// The board's plug: lets transfers in, and tells the chip the time when one begins.
class Plug : public ForwardingSlave {
public:
    Plug(ByteSlave& next, std::function<void()> tellTime)
        : ForwardingSlave(next)
        , m_tellTime(std::move(tellTime)) {}

    bool Start(std::uint8_t address) override {
        if (!Plugged || !Powered) {
            return false;
        }
        m_tellTime();
        return ForwardingSlave::Start(address);
    }

    bool Plugged = true;
    bool Powered = true;

private:
    std::function<void()> m_tellTime;
};

/// Where the trace listens. What passes is handed on unchanged.
class TracedSlave : public ForwardingSlave {
public:
    TracedSlave(ByteSlave& next, BusTrace& trace)
        : ForwardingSlave(next)
        , m_trace(trace) {}

    bool Start(std::uint8_t address) override {
        m_trace.Started();
        return ForwardingSlave::Start(address);
    }

    void Passed(std::uint8_t value, bool acknowledged) override {
        m_trace.Passed(value, acknowledged);
        ForwardingSlave::Passed(value, acknowledged);
    }

    void Stop() override {
        m_trace.Stopped();
        ForwardingSlave::Stop();
    }

private:
    BusTrace& m_trace;
};

} // namespace

struct SimulatedBoard::Parts {
    explicit Parts(SimulatedBoardOptions options)
        : Now(ClockOr(std::move(options.Now)))
        , Wiring(WiringOf(options.BoardMode))
        , SlaveAddress(options.SlaveAddress)
        , TheChip(options.Seed) {}

    std::chrono::nanoseconds SincePowerOn() const { return Now() - PowerOn; }

    std::function<std::chrono::nanoseconds()> Now;
    std::chrono::nanoseconds PowerOn = Now();
    BoardWiring Wiring;
    std::uint8_t SlaveAddress;
    double Hertz = 0;
    Chip TheChip;
    Faults TheFaults;
    BusPacer Pacer;
    // From the chip outwards; what is to see or disturb every transfer takes its place here.
    LossyMemory Memory{TheChip, TheFaults};
    ChipSlave Slave{Memory, SlaveAddress};
    FaultySlave DisturbedSlave{Slave, SlaveAddress, TheFaults};
    Plug ThePlug{DisturbedSlave, [this] { TheChip.SetTime(SincePowerOn()); }};
    BusTrace Trace{Now};
    TracedSlave Bus{ThePlug, Trace};
};

SimulatedBoard::SimulatedBoard(SimulatedBoardOptions options)
    : m_parts(std::make_unique<Parts>(std::move(options))) {}

SimulatedBoard::~SimulatedBoard() = default;

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
    Parts& parts = *m_parts;
    return std::make_unique<FaultyPort>(
        std::make_unique<SimulatedPort>(parts.Bus, parts.Wiring, parts.Pacer), parts.Wiring,
        parts.TheFaults, parts.Pacer);
}

std::unique_ptr<SMBusLink> SimulatedBoard::SMBus() {
    Parts& parts = *m_parts;
    return std::make_unique<FaultySMBus>(std::make_unique<SimulatedSMBus>(parts.Bus, parts.Pacer),
                                         parts.TheFaults, parts.Pacer);
}

Chip& SimulatedBoard::TheChip() {
    return m_parts->TheChip;
}

Faults& SimulatedBoard::TheFaults() {
    return m_parts->TheFaults;
}

BusTrace& SimulatedBoard::Trace() {
    return m_parts->Trace;
}

double SimulatedBoard::ValueAt(ChipInput input) {
    return TheChip().ThePlant().Value(input, m_parts->SincePowerOn());
}

void SimulatedBoard::Force(ChipInput input, double value) {
    TheChip().ThePlant().Force(input, value);
}

void SimulatedBoard::Release(ChipInput input) {
    TheChip().ThePlant().Release(input);
}

bool SimulatedBoard::IsForced(ChipInput input) {
    return TheChip().ThePlant().IsForced(input);
}

void SimulatedBoard::SlaveAddress(std::uint8_t address) {
    m_parts->SlaveAddress = address;
    m_parts->Slave.Address(address);
    m_parts->DisturbedSlave.Address(address);
}

std::uint8_t SimulatedBoard::SlaveAddress() const {
    return m_parts->SlaveAddress;
}

void SimulatedBoard::BoardMode(bool mode) {
    m_parts->Wiring = WiringOf(mode);
}

bool SimulatedBoard::BoardMode() const {
    return m_parts->Wiring == WiringOf(true);
}

void SimulatedBoard::BusHertz(double hertz) {
    m_parts->Hertz = hertz;
    m_parts->Pacer.Hertz(hertz);
}

double SimulatedBoard::BusHertz() const {
    return m_parts->Hertz;
}

void SimulatedBoard::Plugged(bool plugged) {
    m_parts->ThePlug.Plugged = plugged;
}

bool SimulatedBoard::Plugged() const {
    return m_parts->ThePlug.Plugged;
}

void SimulatedBoard::Powered(bool powered) {
    if (powered && !Powered()) {
        m_parts->TheChip.Reset();
        m_parts->PowerOn = m_parts->Now();
    }
    m_parts->ThePlug.Powered = powered;
}

bool SimulatedBoard::Powered() const {
    return m_parts->ThePlug.Powered;
}

} // namespace tqx::sim
