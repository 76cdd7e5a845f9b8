#include "bus/chip_slave.h"

#include <link/pec.h>
#include <simulated/chip.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace tqx::sim {
namespace {

using testing::ElementsAre;

constexpr std::uint8_t Own = 0x58;
constexpr std::uint8_t Scratch = 0x70;

class ChipSlaveTest : public testing::Test {
protected:
    /// Sends bytes after the write address, without a stop; gives the acknowledge of the last.
    bool Send(const std::vector<std::uint8_t>& bytes) {
        bool acknowledged = Slave.Start(Own);
        for (const std::uint8_t value : bytes) {
            acknowledged = Slave.Write(value);
        }
        return acknowledged;
    }

    void SendAndStop(const std::vector<std::uint8_t>& bytes) {
        Send(bytes);
        Slave.Stop();
    }

    std::vector<std::uint8_t> Receive(std::size_t count) {
        EXPECT_TRUE(Slave.Start(Own | ReadBit));
        std::vector<std::uint8_t> bytes(count);
        for (std::uint8_t& value : bytes) {
            value = Slave.Read();
        }
        Slave.Stop();
        return bytes;
    }

    /// A block write's bytes after the address, with its PEC.
    static std::vector<std::uint8_t> WithPEC(std::vector<std::uint8_t> bytes) {
        std::uint8_t sum = PECStep(0, Own);
        for (const std::uint8_t value : bytes) {
            sum = PECStep(sum, value);
        }
        bytes.push_back(sum);
        return bytes;
    }

    Chip Model;
    ChipSlave Slave{Model, Own};
};

TEST_F(ChipSlaveTest, BlocksFollowOneAnotherAtThePointer) {
    SendAndStop({Scratch});
    SendAndStop(WithPEC({0xA0, 2, 0x11, 0x22}));
    SendAndStop(WithPEC({0xA0, 1, 0x33}));
    SendAndStop({Scratch});
    Send({0xA1});
    const auto first = Receive(35);
    EXPECT_THAT(std::vector(first.begin(), first.begin() + 4), ElementsAre(32, 0x11, 0x22, 0x33));
    EXPECT_EQ(first.back(), 0xFF) << "nothing is behind the PEC";
    Model.Write(Scratch + 32, 0x44);
    Send({0xA1});
    EXPECT_EQ(Receive(2).back(), 0x44);
}

TEST_F(ChipSlaveTest, BlockWriteIsStoredOnlyWholeAndWithAGoodPEC) {
    struct {
        const char* What;
        std::vector<std::uint8_t> Bytes;
        bool Acknowledged;
        std::uint8_t Stored;
    } const table[] = {
        {"no PEC", {0xA0, 2, 0x11, 0x22}, true, 0x11},
        {"good PEC", {0xA0, 2, 0x11, 0x22, 0x66}, true, 0x11},
        {"bad PEC", {0xA0, 2, 0x11, 0x22, 0x67}, false, 0},
        {"a byte short", {0xA0, 2, 0x11}, true, 0},
        {"a byte after the PEC", {0xA0, 2, 0x11, 0x22, 0x66, 0x33}, false, 0x11},
        {"count 33", {0xA0, 33}, false, 0},
        {"count 0 with PEC", WithPEC({0xA0, 0}), true, 0},
        {"data after A1h", {0xA1, 0x11}, false, 0},
    };

    for (const auto& row : table) {
        SendAndStop({Scratch, 0});
        EXPECT_EQ(Send(row.Bytes), row.Acknowledged) << row.What;
        Slave.Stop();
        EXPECT_EQ(Model.Read(Scratch), row.Stored) << row.What;
    }
}

} // namespace
} // namespace tqx::sim
