#include "printer_port/pport_block_com.h"
#include "support/recording_link.h"

#include <link/pec.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BlockTransfer : public testing::Test {
protected:
    test::RecordingLink bus;
    LinkSetup setup;
    PPortBlockCom block{bus, setup};
    std::vector<std::string> notices;

    void SetUp() override {
        block.SlaveAddress(0x58);
        setup.Notice = [this](std::string_view title, std::string_view message) {
            notices.push_back(std::string(title) + ": " + std::string(message));
        };
    }

    /// A write of `data` after command A0h; gives the calls on the bus.
    std::vector<std::string> Write(const std::vector<std::uint8_t>& data) {
        block.CommandCode(0xA0);
        block.ByteCount(static_cast<std::uint8_t>(data.size()));
        for (std::size_t i = 0; i < data.size(); ++i) {
            block.SetupBlockData(static_cast<std::uint8_t>(i + 3), data[i]);
        }
        block.BlockWrite();
        return bus.Take();
    }

    /// A read of the data 0, 1, 2 ... 31 with `last` behind them; gives the calls on the bus.
    std::vector<std::string> Read(std::uint8_t last) {
        bus.BusBytes.push_back(32);
        for (std::uint8_t value = 0; value < 32; ++value) {
            bus.BusBytes.push_back(value);
        }
        bus.BusBytes.push_back(last);
        block.CommandCode(0xA1);
        block.BlockRead();
        return bus.Take();
    }

    std::vector<std::uint8_t> Trace(std::uint8_t length) const {
        std::vector<std::uint8_t> trace;
        for (std::uint8_t i = 0; i < length; ++i) {
            trace.push_back(block.BlockPECData(i));
        }
        return trace;
    }

    static std::vector<std::string> Lines(std::vector<std::string> operations) {
        for (std::string& line : operations) {
            line.insert(0, "BoardBus.");
        }
        return operations;
    }
};

/// The PEC of read address 59h, count 20h and data 0 to 31: worked out with an independent CRC-8.
constexpr std::uint8_t PECOfCountingRead = 0x45;

TEST(PEC, OfTheNineDigitsIsTheCheckValueOfTheCode) {
    const std::string_view digits = "123456789";
    EXPECT_EQ(std::accumulate(digits.begin(), digits.end(), std::uint8_t{0}, PECStep), 0xF4);
}

TEST_F(BlockTransfer, AWriteSendsHeadDataAndPEC) {
    block.UsePEC(true);
    EXPECT_EQ(Write({0x11, 0x22}),
              Lines({"BusRelease", "BusStart", "SendBusByte 58", "WaitAck", "SendBusByte A0",
                     "WaitAck", "SendBusByte 2", "WaitAck", "SendBusByte 11", "WaitAck",
                     "SendBusByte 22", "WaitAck", "SendBusByte 66", "AckStatus", "BusStop"}));
    EXPECT_TRUE(block.PECOK());
    EXPECT_EQ(block.PEC(), 0x66);
    EXPECT_THAT(Trace(5), ElementsAre(0x8F, 0xCD, 0x63, 0x59, 0x66));
}

TEST_F(BlockTransfer, WithoutPECTheResultsOfTheLastOneStand) {
    block.UsePEC(true);
    Write({0x11, 0x22});
    block.UsePEC(false);
    bus.NotAcknowledged = true;
    EXPECT_EQ(Write({7}), Lines({"BusRelease", "BusStart", "SendBusByte 58", "WaitAck",
                                 "SendBusByte A0", "WaitAck", "SendBusByte 1", "WaitAck",
                                 "SendBusByte 7", "WaitAck", "BusStop"}));
    Read(0xEE);
    EXPECT_TRUE(block.PECOK());
    EXPECT_EQ(block.PEC(), 0x66);
}

TEST_F(BlockTransfer, AReadIsGoodWhenTheChipSendsTheComputedPEC) {
    block.UsePEC(true);
    Read(PECOfCountingRead);
    EXPECT_TRUE(block.PECOK());
    EXPECT_EQ(block.BlockPECData(0), 0x88); // of the read address
    EXPECT_EQ(block.BlockPECData(33), PECOfCountingRead);
    Read(PECOfCountingRead ^ 0x10);
    EXPECT_FALSE(block.PECOK());
    EXPECT_EQ(block.PEC(), PECOfCountingRead);
}

TEST_F(BlockTransfer, AnotherCountEndsTheReadWhereItStands) {
    block.UsePEC(true);
    Read(PECOfCountingRead);
    bus.BusBytes.push_back(31);
    block.BlockRead();
    EXPECT_EQ(bus.Take().back(), "BoardBus.ReadBusByte");
    EXPECT_THAT(notices,
                ElementsAre("An error was detected: The byte count read did not equal 32"));
    EXPECT_EQ(block.ByteCount(), 31);
    EXPECT_EQ(block.RetrieveBlockData(1), 32);
    EXPECT_EQ(block.RetrieveBlockData(33), 31);
    EXPECT_TRUE(block.PECOK());
}

TEST_F(BlockTransfer, WhatDoesNotFitTheFramesIsRefusedWithNothingSent) {
    block.SetupBlockData(37, 1);
    EXPECT_THROW(block.SetupBlockData(38, 1), std::out_of_range);
    EXPECT_THROW(block.RetrieveBlockData(38), std::out_of_range);
    block.ByteCount(36);
    EXPECT_THROW(block.BlockWrite(), std::out_of_range);
    EXPECT_THAT(bus.Take(), IsEmpty());
}

} // namespace
} // namespace tqx
