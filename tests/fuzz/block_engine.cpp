// The transfers of the printer port against a bus on which any bit may come back, and a port that
// may fail at any moment. A transfer ends, its port is let go, and nothing is read beyond a frame.

#include "fuzz/fuzz_bytes.h"

#include <link/link_error.h>
#include <link/pec.h>
#include <link/port_link.h>

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tqx {
namespace {

/// Each look at the lines takes a byte, and now and then the port is gone.
class HostilePort : public ParallelPort {
public:
    HostilePort(fuzz::Bytes& bytes, int& held)
        : m_bytes(bytes)
        , m_held(held) {}

    std::uint16_t BaseAddress() override { return 0x378; }

    void WriteData(std::uint8_t /*value*/) override {
        fuzz::Require(m_held > 0, "a port is written to while it is held");
    }

    std::uint8_t ReadStatus() override {
        const std::uint8_t status = m_bytes.Take();
        if (status == 0xEE) {
            throw LinkError("cannot read", "the port is gone", "");
        }
        return status;
    }

    void Hold(bool hold) override { m_held += hold ? 1 : -1; }

    void Delay(std::chrono::nanoseconds) override {}

private:
    fuzz::Bytes& m_bytes;
    int& m_held;
};

void ReadBlock(BoardBus& bus, fuzz::Bytes& bytes) {
    const bool usePEC = bytes.Take() % 2 == 0;
    bus.UsePEC(usePEC);
    std::uint8_t count = 0;
    bus.BlockRead(0, 0, count);
    const FrameBytes frame = bus.BlockData();
    if (count != 32 || !usePEC) {
        return;
    }
    std::uint8_t sum = 0;
    for (int i = 0; i < 34; ++i) {
        sum = PECStep(sum, frame.at(static_cast<std::size_t>(i)));
    }
    fuzz::Require(bus.PECOK() == (sum == frame.at(34)), "PECOK tells whether the PEC is right");
    fuzz::Require(bus.PECResult() == sum, "PECResult is the PEC of the frame");
}

void WriteBlockOf(BoardBus& bus, fuzz::Bytes& bytes) {
    bus.UsePEC(bytes.Take() % 2 == 0);
    const std::uint8_t count = bytes.Take();
    WriteBlock frame{};
    for (auto& value : frame) {
        value = bytes.Take();
    }
    bus.BlockWrite(count, frame);
    fuzz::Require(count <= 35, "a count that does not fit the frame is refused");
    bus.PECTrace();
}

void Act(std::uint8_t action, PrinterPortLink& link, fuzz::Bytes& bytes) {
    BoardBus& bus = link.BoardBus();
    const std::uint8_t first = bytes.Take();
    const std::uint8_t second = bytes.Take();
    switch (action % 8) {
    case 0:
        ReadBlock(bus, bytes);
        break;
    case 1:
        WriteBlockOf(bus, bytes);
        break;
    case 2:
        bus.ReadByte(first, second);
        break;
    case 3:
        bus.WriteByte(first, second, bytes.Take());
        break;
    case 4:
        link.BurstMode(first % 2 == 0);
        break;
    case 5:
        link.EEPROMLink().ReadEEPROM(first, second);
        break;
    case 6:
        link.EEPROMLink().WriteEEPROM(first, second, bytes.Take());
        break;
    default:
        link.EEPROMLink().ErasePage(first, second, 0);
    }
}

} // namespace
} // namespace tqx

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tqx;
    fuzz::Bytes bytes(data, size);
    int held = 0;
    int notices = 0;
    const LinkSetup setup{.Notice = [&](auto, auto) { ++notices; }};
    std::vector<std::unique_ptr<ParallelPort>> ports;
    ports.push_back(std::make_unique<HostilePort>(bytes, held));
    {
        PortLink link(std::move(ports), setup);
        link.BoardBus().SlaveAddress(0x58);
        while (bytes.More()) {
            try {
                Act(bytes.Take(), link, bytes);
            } catch (const LinkError&) {
                fuzz::Require(held == 0, "a transfer that fails lets its port go");
            } catch (const std::out_of_range&) {
                // A count that does not fit; nothing was sent.
            }
            fuzz::Require(held == 0 || held == 1, "a port is held at most once");
        }
        try {
            link.BurstMode(false);
        } catch (const LinkError&) {
        }
        fuzz::Require(held == 0, "no port is held beyond its burst");
    }
    return 0;
}
