#include "linux_failures.h"
#include "ppdev_port.h"
#include "support/fake_kernel.h"

#include <link/link_root.h>
#include <link/port_link.h>

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using test::FailureOf;
using testing::AllOf;
using testing::HasSubstr;

class PpdevPortTest : public testing::Test {
protected:
    test::FakeKernel kernel;
    std::unique_ptr<PpdevPort> port;

    void SetUp() override {
        kernel.AddPort(0, "888\t0\n");
        port = std::make_unique<PpdevPort>(kernel, "parport0", 0x378);
    }

    std::string& Active() { return kernel.Files["/proc/sys/dev/parport/parport0/devices/active"]; }
};

TEST_F(PpdevPortTest, IsOpenedAndSetUpByTheFirstClaimAloneAndParksLinesThatItLeftOtherwise) {
    EXPECT_EQ(kernel.TakeCalls(), "");
    port->Hold(true);
    EXPECT_EQ(kernel.TakeCalls(), "OpenNode /dev/parport0; PortClaim; PortCompatible; PortForward");
    port->WriteData(0xB1);
    kernel.Status = 0xD8;
    EXPECT_EQ(port->ReadStatus(), 0xD8);
    EXPECT_EQ(kernel.TakeCalls(), "PortWriteData B1; PortReadStatus");
    port->Hold(false);
    EXPECT_EQ(kernel.TakeCalls(), "PortWriteData B3; PortRelease");
    port->Hold(true);
    port->WriteData(ParkedLines);
    port->Hold(false);
    EXPECT_EQ(kernel.TakeCalls(), "PortClaim; PortWriteData B3; PortRelease");
}

TEST_F(PpdevPortTest, LetsThePortGoEvenWhenItsLinesCannotBeParked) {
    port->Hold(true);
    port->WriteData(0xB0);
    kernel.NextErrors["PortWriteData"] = {EIO};
    EXPECT_THAT(FailureOf([&] { port->Hold(false); }), HasSubstr("cannot park the lines of"));
    EXPECT_FALSE(kernel.Claimed);
}

TEST_F(PpdevPortTest, ParksAndClosesAtTheEndOfTheProcess) {
    port->Hold(true);
    port->WriteData(0xB0);
    port.reset();
    EXPECT_EQ(kernel.Data, ParkedLines);
    EXPECT_FALSE(kernel.Claimed);
    EXPECT_EQ(kernel.OpenFiles(), 0);
}

TEST_F(PpdevPortTest, WaitsForAnotherHolderWithoutAskingForTheClaim) {
    Active() = "lp\n";
    kernel.OnSleep = [this] {
        if (kernel.Time >= 100ms) {
            Active() = "none\n";
        }
    };
    port->Hold(true);
    EXPECT_TRUE(kernel.Claimed);
    EXPECT_LT(kernel.Time, 120ms);
    EXPECT_THAT(kernel.TakeCalls(), HasSubstr("OpenNode /dev/parport0; PortClaim; "));
}

TEST_F(PpdevPortTest, GivesUpOnAHolderThatStaysAndNamesHim) {
    const std::vector<std::pair<std::string, std::string>> holders{
        {"lp\n", "modprobe -r lp"}, {"ppdev1\n", "another program"}, {"plip\n", "driver plip"}};
    for (const auto& [holder, named] : holders) {
        Active() = holder;
        kernel.Time = 0ns;
        EXPECT_THAT(FailureOf([&] { port->Hold(true); }),
                    AllOf(HasSubstr("cannot claim /dev/parport0"), HasSubstr(named)));
        EXPECT_GE(kernel.Time, ClaimLimit);
        EXPECT_LT(kernel.Time, ClaimLimit + 50ms);
        EXPECT_THAT(kernel.TakeCalls(), testing::Not(HasSubstr("PortClaim")));
    }
    Active() = "none\n";
    port->Hold(true);
    EXPECT_TRUE(kernel.Claimed);
}

TEST_F(PpdevPortTest, AClaimThatSleepsIsInterruptedAtTheLimit) {
    kernel.NextErrors["PortClaim"] = {EINTR};
    EXPECT_THAT(FailureOf([&] { port->Hold(true); }), HasSubstr("another driver is using it"));
    EXPECT_EQ(kernel.Time, ClaimLimit);
    port->Hold(false);
    EXPECT_EQ(kernel.TakeCalls(),
              "OpenNode /dev/parport0; PortClaim; Close; OpenNode /dev/parport0")
        << "out of the kernel's queue";
}

TEST_F(PpdevPortTest, AForeignSignalOnlyRepeatsTheClaim) {
    class Interrupted : public test::FakeKernel {
    public:
        int Signals = 3;

        KernelAnswer PortClaim(int file, std::chrono::nanoseconds limit) override {
            return Signals-- > 0 ? KernelAnswer{.Error = EINTR}
                                 : test::FakeKernel::PortClaim(file, limit);
        }
    } interrupted;

    interrupted.AddPort(0, "888\t0\n");
    PpdevPort other(interrupted, "parport0", 0x378);
    other.Hold(true);
    EXPECT_TRUE(interrupted.Claimed);
}

/// An operation that fails, with which number, and what the user reads.
struct PortFailure {
    const char* Operation;
    int Error;
    const char* Read;
    bool Closed;
};

class PpdevPortFailure : public PpdevPortTest, public testing::WithParamInterface<PortFailure> {};

TEST_P(PpdevPortFailure, NamesThePortAndRecovers) {
    const PortFailure& failure = GetParam();
    kernel.Rights["/dev/parport0"] = {.Owner = "root", .Group = 7, .GroupName = "lp", .Mode = 0660};
    kernel.NextErrors[failure.Operation] = {failure.Error};
    const std::string read = FailureOf([&] {
        port->Hold(true);
        port->WriteData(0xB3);
        port->ReadStatus();
        port->Hold(false);
    });
    EXPECT_THAT(read, AllOf(HasSubstr("/dev/parport0"), HasSubstr(failure.Read)));
    EXPECT_EQ(kernel.OpenFiles() == 0, failure.Closed);

    port->Hold(false);
    port->Hold(true);
    port->WriteData(0xB1);
    EXPECT_EQ(kernel.Data, 0xB1);
}

INSTANTIATE_TEST_SUITE_P(
    All, PpdevPortFailure,
    testing::Values(PortFailure{"OpenNode", ENOENT, "modprobe ppdev", true},
                    PortFailure{"OpenNode", EACCES, "adduser eva lp", true},
                    PortFailure{"OpenNode", EMFILE, "too many files", true},
                    PortFailure{"PortClaim", ENXIO, "the port is gone", true},
                    PortFailure{"PortClaim", ENOMEM, "cannot claim", false},
                    PortFailure{"PortCompatible", ENOTTY, "does not belong", true},
                    PortFailure{"PortForward", EIO, "cannot set the direction of", true},
                    PortFailure{"PortWriteData", ENODEV, "the port is gone", true},
                    PortFailure{"PortWriteData", EINTR, "interrupted", false},
                    PortFailure{"PortReadStatus", EINVAL, "not this program's", false},
                    PortFailure{"PortReadStatus", EIO, "does not react", false},
                    PortFailure{"PortRelease", EIO, "cannot release", false}));

TEST_F(PpdevPortTest, APortThatVanishesInMidTransferEndsItAndIsTakenAnewAfterwards) {
    const LinkSetup setup;
    PortLink link(FindPrinterPorts(kernel), setup);
    link.BurstMode(true);
    link.BoardBus().ReadByte(0x58, 0x16);
    kernel.NextErrors["PortWriteData"] = {0, 0, 0, ENODEV};
    EXPECT_THAT(FailureOf([&] { link.BoardBus().ReadByte(0x58, 0x16); }),
                HasSubstr("the port is gone"));
    EXPECT_EQ(kernel.OpenFiles(), 0);
    kernel.Nodes.clear();
    EXPECT_THAT(FailureOf([&] { link.BoardBus().ReadByte(0x58, 0x16); }),
                HasSubstr("modprobe ppdev"));
    kernel.Nodes["/dev/parport0"] = 0;
    EXPECT_EQ(link.BoardBus().ReadByte(0x58, 0x16), 0xFF);
    EXPECT_TRUE(kernel.Claimed);
    link.BurstMode(false);
    EXPECT_FALSE(kernel.Claimed);
}

TEST_F(PpdevPortTest, TheClockIsNeverLowForLessThanTheBusAllows) {
    port->Hold(true);
    for (const BoardWiring& wiring : {DirectWiring, InvertedWiring}) {
        port->WriteData(LineControlBits | wiring.BothHigh);
        const auto start = std::chrono::steady_clock::now();
        port->WriteData(LineControlBits | wiring.DataHighClockLow);
        port->WriteData(LineControlBits | wiring.BothHigh);
        EXPECT_GE(std::chrono::steady_clock::now() - start, ShortestClockLow);
    }
}

TEST_F(PpdevPortTest, LongDelaysSleepAndShortOnesDoNot) {
    port->Delay(10us);
    EXPECT_EQ(kernel.Time, 0ns);
    port->Delay(1ms);
    EXPECT_EQ(kernel.Time, 1ms);
}

TEST(FindPrinterPorts, GivesThePortsOfTheKernelByNumber) {
    test::FakeKernel kernel;
    EXPECT_TRUE(FindPrinterPorts(kernel).empty());
    kernel.AddPort(10, "53248\t54272\n");
    kernel.AddPort(2, "888\t0\n");
    kernel.AddPort(3, "");
    kernel.AddPort(4, "66424\t0\n"); // 378h but for a bit too many
    kernel.Files["/proc/sys/dev/parport/default/timeslice"] = "200\n";
    std::vector<unsigned> addresses;
    for (const auto& port : FindPrinterPorts(kernel)) {
        addresses.push_back(port->BaseAddress());
    }
    EXPECT_THAT(addresses, testing::ElementsAre(0x378, 0, 0, 0xD000));
    EXPECT_EQ(kernel.TakeCalls(), "");
}

} // namespace
} // namespace tqx
