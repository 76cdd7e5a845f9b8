#pragma once

#include <link/link_root.h>
#include <simulated/simulated_board.h>

#include <gtest/gtest.h>

namespace tqx::sim {

/// A simulated board at 58h whose clock stands until a test moves it, and a link to it.
class BoardTest : public testing::Test {
protected:
    explicit BoardTest(bool boardMode = false)
        : Board({.BoardMode = boardMode, .Now = [this] { return Time; }})
        , Link(Board.Factory()) {
        Bus().BoardMode(boardMode);
        Bus().SlaveAddress(Address);
        Link.Setup.Notice = [this](std::string_view, std::string_view) { ++Notices; };
    }

    BoardBus& Bus() { return Link->PrinterPortLink().BoardBus(); }

    EEPROMLink& EEPROMBus() { return Link->PrinterPortLink().EEPROMLink(); }

    SMBusLink& SMBus() { return Link->SMBusLink(); }

    std::uint8_t Read(std::uint8_t reg) { return Bus().ReadByte(Address, reg); }

    void Write(std::uint8_t reg, std::uint8_t value) { Bus().WriteByte(Address, reg, value); }

    /// Reads a block with PEC at the chip's pointer.
    FrameBytes ReadBlock() {
        Bus().UsePEC(true);
        std::uint8_t out = 0;
        Bus().BlockRead(0xAA, 0x0A, out);
        return Bus().BlockData();
    }

    /// Writes 11h, 22h, 33h with PEC at the chip's pointer; true when the chip took the PEC.
    bool WriteBlock() {
        Bus().UsePEC(true);
        Bus().BlockWrite(3, {0, 0, 0, 0x11, 0x22, 0x33});
        return Bus().PECOK();
    }

    static constexpr std::uint8_t Address = 0x58;

    std::chrono::nanoseconds Time{0};
    SimulatedBoard Board;
    LinkRoot Link;
    int Notices = 0;
};

} // namespace tqx::sim
