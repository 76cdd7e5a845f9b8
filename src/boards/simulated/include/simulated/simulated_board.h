#pragma once

#include "simulated/bus_pacer.h"
#include "simulated/bus_trace.h"
#include "simulated/chip.h"
#include "simulated/chip_slave.h"
#include "simulated/faults.h"
#include "simulated/faulty_slave.h"
#include "simulated/lossy_memory.h"

#include <link/board_wiring.h>
#include <link/link_root.h>
#include <link/link_server.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace tqx {

struct SimulatedBoardOptions {
    /// The board mode in which the chip answers on the printer port.
    bool BoardMode = false;
    /// 58h, 5Ah or 5Ch: 8-bit form. On the SMBus the chip answers at half of it.
    std::uint8_t SlaveAddress = 0x58;
    /// Measured values and the chance of faults follow it.
    std::uint32_t Seed = 1;
    /// A clock for the chip's surroundings, from any starting point; empty: the machine's
    /// monotonic clock.
    std::function<std::chrono::nanoseconds()> Now = nullptr;
};

/// An evaluation board that is not there: one modelled chip, on a printer port at 378h and on the
/// host's SMBus. At any other address, 0 among them, nobody answers: reads give FFh.
class SimulatedBoard {
public:
    explicit SimulatedBoard(SimulatedBoardOptions options = {});

    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    /// Makes a link to the board, which must outlive it.
    LinkFactory Factory();

    /// Makes an operating system of build number 2222, on which the SMBus can be reached.
    static std::function<std::unique_ptr<OSVersionInfo>()> OSVersionInfoFactory();

    /// The media by themselves. The board must outlive them.
    /// @{
    std::unique_ptr<ParallelPort> PrinterPort();
    std::unique_ptr<SMBusLink> SMBus();

    /// @}

    Chip& TheChip() { return m_chip; }

    Faults& TheFaults() { return m_faults; }

    /// The last transfers on the bus, on either medium.
    BusTrace& Trace() { return m_trace; }

    /// The value at an input at this moment, held or not: degrees, revolutions per minute or volts.
    double ValueAt(ChipInput input);

    /// @name What can be changed at any time; a transfer under way may be lost to it.
    /// @{

    /// The address pins: 58h, 5Ah or 5Ch, 8-bit form.
    void SlaveAddress(std::uint8_t address);

    std::uint8_t SlaveAddress() const { return m_address; }

    /// The board mode in which the chip answers on the printer port.
    void BoardMode(bool mode) { m_wiring = WiringOf(mode); }

    bool BoardMode() const { return m_wiring == WiringOf(true); }

    /// Clock rate of the bus on both media, in real time; 0 is as fast as possible.
    void BusHertz(double hertz);

    double BusHertz() const { return m_hertz; }

    /// Pulls the plug out, or puts it in: the chip stays as it is, and is not heard meanwhile.
    void Plugged(bool plugged) { m_plug.Plugged = plugged; }

    bool Plugged() const { return m_plug.Plugged; }

    /// Switches the board off, or on. At power on the chip begins afresh, with its EEPROM as it
    /// was.
    void Powered(bool powered);

    bool Powered() const { return m_plug.Powered; }

    /// @}

private:
    /// The board's plug: lets transfers in, and tells the chip the time when one begins.
    class Plug : public ForwardingSlave {
    public:
        Plug(ByteSlave& next, SimulatedBoard& board);

        bool Start(std::uint8_t address) override;

        bool Plugged = true;
        bool Powered = true;

    private:
        SimulatedBoard& m_board;
    };

    std::function<std::chrono::nanoseconds()> m_now;
    std::chrono::nanoseconds m_powerOn;
    BoardWiring m_wiring;
    std::uint8_t m_address;
    double m_hertz = 0;
    Chip m_chip;
    Faults m_faults;
    BusPacer m_pacer;
    // From the chip outwards; what is to see or disturb every transfer takes its place here.
    LossyMemory m_memory{m_chip, m_faults};
    ChipSlave m_slave;
    FaultySlave m_faultySlave;
    Plug m_plug;
    BusTrace m_trace;
};

} // namespace tqx
