// The decoder of the bus lines and the chip behind it, under port writes that no transfer makes.
// Whatever came over the lines: once they are parked, the chip answers the next transfer.

#include "fuzz/fuzz_bytes.h"
#include "printer_port/line_layer.h"

#include <simulated/simulated_board.h>

namespace tqx {
namespace {

constexpr std::uint8_t Slave = 0x58;
constexpr std::uint8_t CompanyID = 0x16;
constexpr std::uint8_t Company = 0x41;

class Lines : public LinePort {
public:
    explicit Lines(ParallelPort& port)
        : m_port(port) {}

    std::uint16_t PortAddress() override { return m_port.BaseAddress(); }

    void PortOut(std::uint8_t value) override { m_port.WriteData(value); }

    std::uint8_t PortIn(std::uint16_t /*port*/) override { return m_port.ReadStatus(); }

    void LineDelay(std::chrono::nanoseconds time) override { m_port.Delay(time); }

private:
    ParallelPort& m_port;
};

/// Pieces of transfers, so that bytes reach the chip, between port writes of any kind.
void Act(std::uint8_t action, fuzz::Bytes& bytes, LineLayer& lines, ParallelPort& port) {
    switch (action % 8) {
    case 0:
        lines.LineStart();
        lines.ClockOutByte((action & 8) != 0 ? Slave | 1 : Slave);
        lines.ClockAck();
        break;
    case 1:
        lines.LineStop();
        break;
    case 2:
        lines.ClockOutByte(bytes.Take());
        break;
    case 3:
        lines.ClockAck();
        break;
    case 4:
        lines.ClockInByte();
        break;
    case 5:
        lines.SendAck();
        break;
    case 6:
        lines.ReleaseLines();
        break;
    default:
        port.WriteData(bytes.Take());
        port.ReadStatus();
    }
}

std::uint8_t ReadRegister(LineLayer& lines, std::uint8_t reg) {
    lines.LineStart();
    for (const std::uint8_t byte : {Slave, reg}) {
        lines.ClockOutByte(byte);
        fuzz::Require(!lines.ClockAck(), "the chip acknowledges after the lines were parked");
    }
    lines.ReleaseLines();
    lines.LineStart();
    lines.ClockOutByte(Slave | 1);
    fuzz::Require(!lines.ClockAck(), "the chip acknowledges its read address");
    const std::uint8_t value = lines.ClockInByte();
    lines.ClockNack();
    lines.LineStop();
    return value;
}

} // namespace
} // namespace tqx

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tqx;
    fuzz::Bytes bytes(data, size);
    SimulatedBoard board({.Now = [] { return std::chrono::nanoseconds{0}; }});
    const auto port = board.PrinterPort();
    Lines linePort(*port);
    const LinkSetup setup;
    LineLayer lines(linePort, DirectWiring, setup);
    while (bytes.More()) {
        Act(bytes.Take(), bytes, lines, *port);
    }
    lines.ParkLines();
    fuzz::Require((port->ReadStatus() & DataLineStatusBit) != 0, "parked lines are free");
    fuzz::Require(ReadRegister(lines, CompanyID) == Company, "the chip says whose it is");
    return 0;
}
