#include "linux_failures.h"
#include "ppdev_port.h"
#include "support/fake_kernel.h"

#include <link/board_wiring.h>
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

TEST_F(PpdevPortTest, IsOpenedAndSetUpByTheFirstClaimAloneAndLeavesTheLinesAsTheyAre) {
    EXPECT_EQ(kernel.TakeCalls(), "");
    port->Hold(true);
    EXPECT_EQ(kernel.TakeCalls(), "OpenNode /dev/parport0; PortClaim; PortCompatible; PortForward");
    port->WriteData(0xB1);
    kernel.Status = 0xD8;
    EXPECT_EQ(port->ReadStatus(), 0xD8);
    EXPECT_EQ(kernel.TakeCalls(), "PortWriteData B1; PortReadStatus");
    port->Hold(false);
    EXPECT_EQ(kernel.TakeCalls(), "PortRelease");
    port->Hold(true);
    EXPECT_EQ(kernel.TakeCalls(), "PortClaim");
    port.reset();
    EXPECT_EQ(kernel.TakeCalls(), "PortRelease; Close");
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

TEST_F(PpdevPortTest, AnInterruptedClaimIsRepeatedOutOfTheKernelsQueue) {
    kernel.NextErrors["PortClaim"] = {EINTR};
    port->Hold(true);
    EXPECT_EQ(kernel.TakeCalls(), "OpenNode /dev/parport0; PortClaim; Close; OpenNode "
                                  "/dev/parport0; PortClaim; PortCompatible; PortForward");
}

TEST_F(PpdevPortTest, AFailureNamesThePortAndTheNextHoldIsGood) {
    struct {
        const char* Operation;
        int Error;
        const char* Read;
        bool Closed;
    } const failures[] = {{"OpenNode", ENOENT, "modprobe ppdev", true},
                          {"OpenNode", EACCES, "root:lp, mode 0660: join the group lp (", true},
                          {"OpenNode", EBUSY, "another program keeps it", true},
                          {"PortClaim", ENXIO, "the device is gone", true},
                          {"PortClaim", ENOMEM, "cannot claim", false},
                          {"PortCompatible", ENOTTY, "cannot set the mode of", true},
                          {"PortForward", EIO, "cannot set the direction of", true},
                          {"PortWriteData", ENODEV, "cannot write to", true},
                          {"PortWriteData", EINTR, "Interrupted system call", false},
                          {"PortReadStatus", EIO, "no answer", false},
                          {"PortRelease", EIO, "cannot release", false}};

    kernel.Rights["/dev/parport0"] = {.Owner = "root", .Group = "lp", .Mode = 0660};

    for (const auto& failure : failures) {
        port = std::make_unique<PpdevPort>(kernel, "parport0", 0x378);
        kernel.NextErrors[failure.Operation] = {failure.Error};
        const std::string read = FailureOf([this] {
            port->Hold(true);
            port->WriteData(0xB3);
            port->ReadStatus();
            port->Hold(false);
        });
        EXPECT_THAT(read, AllOf(HasSubstr("/dev/parport0"), HasSubstr(failure.Read)));
        EXPECT_EQ(kernel.OpenFiles() == 0, failure.Closed) << read;
        port->Hold(false);
        kernel.TakeCalls();
        port->Hold(true);
        if (failure.Closed) {
            EXPECT_EQ(kernel.TakeCalls(),
                      "OpenNode /dev/parport0; PortClaim; PortCompatible; PortForward");
        }
        port->WriteData(0xB1);
        EXPECT_EQ(kernel.Data, 0xB1) << read;
    }
}

TEST_F(PpdevPortTest, ANodeThatNoGroupMayUseAsksForARule) {
    kernel.Nodes["/dev/parport0"] = EACCES;
    for (const NodeRights& rights : {NodeRights{.Owner = "root", .Group = "root", .Mode = 0660},
                                     NodeRights{.Owner = "root", .Group = "lp", .Mode = 0640}}) {
        kernel.Rights["/dev/parport0"] = rights;
        EXPECT_THAT(FailureOf([this] { port->Hold(true); }),
                    AllOf(HasSubstr("root:" + rights.Group), HasSubstr("udev rule")));
    }
}

TEST_F(PpdevPortTest, APortThatVanishesInMidTransferEndsItAndIsTakenAnewAfterwards) {
    const LinkSetup setup;
    PortLink link(FindPrinterPorts(kernel), setup);
    link.BurstMode(true);
    link.BoardBus().ReadByte(0x58, 0x16);
    kernel.NextErrors["PortWriteData"] = {0, 0, 0, ENODEV};
    EXPECT_THAT(FailureOf([&] { link.BoardBus().ReadByte(0x58, 0x16); }),
                HasSubstr("the device is gone"));
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
