#pragma once

#include "simulated/bus_trace.h"
#include "simulated/chip.h"
#include "simulated/chip_input.h"
#include "simulated/faults.h"

#include <link/link_root.h>
#include <link/link_server.h>
#include <link/parallel_port.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace tqx::sim {

struct SimulatedBoardOptions {
    /// The board mode in which the chip answers on the printer port.
    bool BoardMode = false;
    /// 58h, 5Ah or 5Ch: 8-bit form. On the SMBus the chip answers at half of it.
    std::uint8_t SlaveAddress = 0x58;
    /// Measured values follow it.
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
    ~SimulatedBoard();

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

    Chip& TheChip();
    Faults& TheFaults();
    /// The last transfers on the bus, on either medium.
    BusTrace& Trace();

    /// @name The inputs of the chip, in degrees, revolutions per minute or volts
    /// @{

    /// The value at this moment, held or not.
    double ValueAt(ChipInput input);
    /// Holds an input at a value until it is released.
    void Force(ChipInput input, double value);
    void Release(ChipInput input);
    bool IsForced(ChipInput input);
    /// @}

    /// @name What can be changed at any time; a transfer under way may be lost to it.
    /// @{

    /// The address pins: 58h, 5Ah or 5Ch, 8-bit form.
    void SlaveAddress(std::uint8_t address);
    std::uint8_t SlaveAddress() const;

    /// The board mode in which the chip answers on the printer port.
    void BoardMode(bool mode);
    bool BoardMode() const;

    /// Clock rate of the bus on both media, in real time; 0 is as fast as possible.
    void BusHertz(double hertz);
    double BusHertz() const;

    /// Pulls the plug out, or puts it in: the chip stays as it is, and is not heard meanwhile.
    void Plugged(bool plugged);
    bool Plugged() const;

    /// Switches the board off, or on. At power on the chip begins afresh, with its EEPROM as it
    /// was.
    void Powered(bool powered);
    bool Powered() const;

    /// @}

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace tqx::sim
