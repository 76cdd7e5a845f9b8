// The board for real hardware under a real kernel. Each suite is a state of the machine, in the
// order in which kernel-test.sh brings it about; within a suite the order is that of the file.

#include "kernel/kernel_bench.h"
#include "linux_kernel.h"

#include <chrono>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/ppdev.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tqx::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::uint8_t OnLines = 0x58;
constexpr std::uint8_t OnSMBus = 0x2C;
constexpr std::uint8_t CompanyID = 0x16;
constexpr const char* FirstPort = "/dev/parport0";

// The users and groups that kernel-test.sh makes.
constexpr unsigned GroupLP = 7;
constexpr unsigned GroupI2C = 110;
const Person Member{.User = 1000, .Groups = {1000, GroupLP, GroupI2C}};
const Person Visitor{.User = 1002, .Groups = {1002}};

void ReadSMBus(KernelBench& bench) {
    bench.SMBus.ReadByte(OnSMBus, CompanyID);
}

void ReadFirstPort(KernelBench& bench) {
    bench.Ports.PortIndex(0);
    bench.Ports.BoardBus().ReadByte(OnLines, CompanyID);
}

/// No driver is loaded.
TEST(Bare, FindsNothingAndFailsInNothing) {
    KernelBench bench;
    EXPECT_EQ(bench.Ports.PortCount(), 0);
    EXPECT_EQ(bench.Build(), LinuxKernel().Release());
    EXPECT_EQ(bench.SMBus.BaseAddress(), 0U);
    EXPECT_EQ(bench.SMBus.ReadByte(0, 0x05), 0xFF);
    EXPECT_EQ(bench.SMBus.ReadByte(OnSMBus, CompanyID), 0xFF);
}

/// The drivers of the hardware are loaded, but not those of the nodes.
TEST(NoNodes, TheMessageNamesTheModule) {
    KernelBench bench;
    EXPECT_EQ(bench.Build(), "2222");
    EXPECT_EQ(bench.Ports.PortCount(), 1);
    EXPECT_EQ(bench.SMBus.ReadByte(0, 0x05), 0xFF);
    EXPECT_THAT(FailureOf([&] { ReadSMBus(bench); }), HasSubstr("sudo modprobe i2c-dev"));
    EXPECT_THAT(FailureOf([&] { ReadFirstPort(bench); }), HasSubstr("sudo modprobe ppdev"));
}

/// The nodes are there. Each way of being refused, on either kind of node, and the way in.
class Refused : public testing::TestWithParam<std::tuple<const char*, unsigned, const char*>> {
protected:
    const char* const node = std::get<0>(GetParam());
    const unsigned group = std::get<1>(GetParam());
    const std::string groupName = std::get<2>(GetParam());

    void Give(unsigned owner, unsigned toGroup, unsigned mode) const {
        ASSERT_EQ(chown(node, owner, toGroup), 0);
        ASSERT_EQ(chmod(node, mode), 0);
    }

    std::string As(const Person& person) const {
        return FailureAs(person, group == GroupLP ? ReadFirstPort : ReadSMBus);
    }
};

TEST_P(Refused, IsToldWithItsCause) {
    Give(0, 0, 0600);
    EXPECT_THAT(As(Member), AllOf(HasSubstr(std::string("cannot open ") + node),
                                  HasSubstr("permission denied"), HasSubstr("udev rule")));
    Give(0, group, 0660);
    EXPECT_THAT(As(Visitor), HasSubstr("sudo adduser $USER " + groupName));
    EXPECT_EQ(As(Member), "");
}

INSTANTIATE_TEST_SUITE_P(Nodes, Refused,
                         testing::Values(std::tuple("/dev/i2c-0", GroupI2C, "i2c"),
                                         std::tuple(FirstPort, GroupLP, "lp")));

/// The machine's own controller and port, with another maker's chip at 2Ch on the controller. From
/// here on as an ordinary user.
TEST(Host, IsFoundWithItsBaseAddress) {
    ASSERT_NE(geteuid(), 0U);
    KernelBench bench;
    EXPECT_EQ(bench.SMBus.BaseAddress(), 0x700U);
    EXPECT_EQ(bench.Build(), "2222");
}

TEST(Host, ThePortIsClaimedWrittenAndLeftToOthers) {
    KernelBench bench;
    ASSERT_EQ(bench.Ports.PortAddress(), 0x378);
    BoardBus& board = bench.Ports.BoardBus();
    const int other = open(FirstPort, O_RDWR);
    const auto written = [other] {
        std::uint8_t value = 0;
        EXPECT_EQ(ioctl(other, PPCLAIM), 0);
        EXPECT_EQ(ioctl(other, PPRDATA, &value), 0);
        EXPECT_EQ(ioctl(other, PPRELEASE), 0);
        return value;
    };
    // The emulated port shows its status whatever is written.
    EXPECT_EQ(board.ReadByte(OnLines, CompanyID), 0xFF);
    EXPECT_EQ(written(), 0xB3);
    board.BoardMode(true);
    board.ReadByte(OnLines, CompanyID);
    EXPECT_EQ(written(), 0xB0) << "both lines are high in this wiring";
    bench.Ports.BurstMode(true);
    board.PortWrite(0x378, 0xB1);
    EXPECT_EQ(board.PortRead(0x379) & 0x10, 0x10);
    bench.Ports.BurstMode(false);
    EXPECT_EQ(written(), 0xB1) << "what is put there by hand stays";
    close(other);
}

TEST(Host, AnotherProgramOnThePortIsWaitedForAndNamed) {
    KernelBench bench;
    {
        const OtherHolder holder(FirstPort);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_THAT(FailureOf([&] { ReadFirstPort(bench); }),
                    StartsWith("cannot claim /dev/parport0: another program is using it"));
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1500ms);
    }
    EXPECT_EQ(FailureOf([&] { ReadFirstPort(bench); }), "");
}

TEST(Host, ThePortIsFreeOnceTheOthersHaveGone) {
    KernelBench bench;
    EXPECT_EQ(FailureOf([&] { ReadFirstPort(bench); }), "");
}

/// The chip as well: a stub on an SMBus of its own, and the board model on a second port.
TEST(Chip, IsFoundOnTheAdapterThatHasIt) {
    ASSERT_NE(geteuid(), 0U);
    KernelBench bench;
    EXPECT_EQ(bench.SMBus.ReadByte(0x2C, CompanyID), 0x41);
    EXPECT_EQ(bench.SMBus.ReadByte(0x2D, CompanyID), 0xFF);
    EXPECT_EQ(bench.SMBus.ReadByte(0x2E, CompanyID), 0xFF);
}

TEST(Chip, IsFoundOnThePortAndTheWiringThatHaveIt) {
    KernelBench bench;
    ASSERT_EQ(bench.Ports.PortCount(), 2);
    std::string found;
    for (const std::uint8_t port : {0, 1}) {
        bench.Ports.PortIndex(port);
        for (const bool mode : {false, true}) {
            bench.Ports.BoardBus().BoardMode(mode);
            for (const std::uint8_t address : {0x58, 0x5A, 0x5C}) {
                if (bench.Ports.BoardBus().ReadByte(address, CompanyID) == 0x41) {
                    found += std::to_string(port) + (mode ? " True " : " False ") +
                             std::to_string(address) + ";";
                }
            }
        }
    }
    EXPECT_EQ(found, "1 False 88;");
}

TEST(Chip, KeepsWhatIsWrittenOverTheLinesAndTheBusIsNeverTooFast) {
    KernelBench bench;
    bench.Ports.PortIndex(1);
    ASSERT_EQ(bench.Ports.PortAddress(), 0x278);
    BoardBus& board = bench.Ports.BoardBus();
    for (int reg = 0x80; reg < 0x100; ++reg) {
        board.WriteByte(OnLines, static_cast<std::uint8_t>(reg),
                        static_cast<std::uint8_t>(255 - reg));
    }
    bench.Ports.BurstMode(true);
    for (int reg = 0; reg < 256; ++reg) {
        const int expected = reg == 0x16 ? 0x41 : reg < 0x80 ? 0x00 : 255 - reg;
        EXPECT_EQ(board.ReadByte(OnLines, static_cast<std::uint8_t>(reg)), expected) << reg;
    }
    bench.Ports.BurstMode(false);
    const std::string shortest = ReadFile("/sys/module/board_model/parameters/shortest_clock_ns");
    EXPECT_GE(std::stoul(shortest), 10'000U) << "faster than 100 kHz";
    std::printf("shortest clock period on the lines: %s", shortest.c_str());
}

/// As root again, who can move drivers about.
TEST(Moves, AnAddressOfAKernelDriverIsNamed) {
    WriteFile("/sys/bus/i2c/devices/i2c-0/new_device", "dummy 0x2d");
    KernelBench bench;
    bench.SMBus.ReadByte(0x2C, CompanyID);
    EXPECT_EQ(bench.SMBus.ReadByte(0x2D, CompanyID), 0xFF) << "the chip is at 2Ch";
    EXPECT_THAT(FailureOf([&] { bench.SMBus.WriteByte(0x2D, 0x20, 0); }),
                AllOf(HasSubstr("cannot use 2Dh on /dev/i2c-0"), HasSubstr("driver dummy owns")));
    WriteFile("/sys/bus/i2c/devices/i2c-0/delete_device", "0x2d");
    EXPECT_EQ(FailureOf([&] { bench.SMBus.WriteByte(0x2D, 0x20, 0); }), "");
}

/// The kernel takes an adapter away only when the last program has closed it.
TEST(Moves, AnAdapterThatIsTakenAwayIsToldAndLetGo) {
    const std::string driver = "/sys/bus/pci/drivers/piix4_smbus/";
    const std::string device = "0000:00:01.3";
    KernelBench bench;
    EXPECT_EQ(bench.SMBus.ReadByte(0x2E, 0x20), 0xFF);
    std::thread removal([&] { WriteFile(driver + "unbind", device); });
    std::string failure;
    for (int i = 0; i < 100 && failure.empty(); ++i) {
        std::this_thread::sleep_for(20ms);
        failure = FailureOf([&] { bench.SMBus.ReadByte(0x2E, 0x20); });
    }
    removal.join();
    EXPECT_THAT(failure, AllOf(HasSubstr("/dev/i2c-0"), HasSubstr("the device is gone")));
    WriteFile(driver + "bind", device);
    EXPECT_EQ(bench.SMBus.ReadByte(0x2E, 0x20), 0xFF);
}

} // namespace
} // namespace tqx::test
