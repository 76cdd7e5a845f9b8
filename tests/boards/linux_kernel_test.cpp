#include "call_limit.h"
#include "kernel_files.h"
#include "linux_kernel.h"
#include "support/fake_kernel.h"

#include <cerrno>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace tqx {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

TEST(SmallFiles, AreReadInAsManyPiecesAsTheKernelGives) {
    test::FakeKernel kernel;
    kernel.Files["/sys/name"] = "SMBus stub driver\n";
    kernel.ReadAtMost = 5;
    kernel.NextErrors["Read"] = {0, EINTR};
    EXPECT_EQ(ReadSmallFile(kernel, "/sys/name"), "SMBus stub driver");
    kernel.NextErrors["Read"] = {0, EIO};
    EXPECT_EQ(ReadSmallFile(kernel, "/sys/name"), std::nullopt);
    EXPECT_EQ(ReadSmallFile(kernel, "/sys/other"), std::nullopt);
    kernel.Files["/sys/long"] = std::string(10'000, 'x');
    EXPECT_EQ(ReadSmallFile(kernel, "/sys/long")->size(), 4096U);
    EXPECT_EQ(kernel.OpenFiles(), 0);
}

TEST(SmallFiles, NamesThatEndInANumber) {
    EXPECT_EQ(NumberAfter("parport", "parport12"), 12);
    for (const char* const name :
         {"parport", "parport-1", "parport1x", "default", "lp0", "arport1"}) {
        EXPECT_EQ(NumberAfter("parport", name), std::nullopt) << name;
    }
}

/// The one file that a fake cannot stand for, on devices that every machine has.
TEST(LinuxKernel, GivesWhatTheKernelSays) {
    LinuxKernel kernel;
    EXPECT_THAT(*ReadSmallFile(kernel, "/proc/version"), HasSubstr(kernel.Release()));
    EXPECT_EQ(kernel.OpenNode("/dev/no-such-node").Error, ENOENT);
    EXPECT_THAT(kernel.List("/proc/self"), testing::Contains("fd"));
    EXPECT_TRUE(kernel.List("/no/such/folder").empty());
    EXPECT_EQ(kernel.RealPath("/no/such/file"), "");
    EXPECT_EQ(kernel.RightsOf("/dev/null")->Mode, 0666U);
    EXPECT_EQ(kernel.RightsOf("/dev/null")->Owner, "root");
    EXPECT_THAT(kernel.User().Session, testing::Contains(getegid()));

    const KernelAnswer opened = kernel.OpenNode("/dev/null");
    ASSERT_EQ(opened.Error, 0);
    const OpenFile file(kernel, static_cast<int>(opened.Value));
    EXPECT_EQ(kernel.I2CFunctions(file.File()).Error, ENOTTY);
    EXPECT_EQ(kernel.I2CAddress(file.File(), 0x2C).Error, ENOTTY);
    EXPECT_EQ(kernel.SMBusReadByte(file.File(), 0x16).Error, ENOTTY);
    EXPECT_EQ(kernel.SMBusWriteByte(file.File(), 0x16, 0).Error, ENOTTY);
    EXPECT_EQ(kernel.PortClaim(file.File(), 1s).Error, ENOTTY);
    EXPECT_EQ(kernel.PortWriteData(file.File(), 0).Error, ENOTTY);
    EXPECT_EQ(kernel.PortReadStatus(file.File()).Error, ENOTTY);
}

TEST(LinuxKernel, SleepsAtLeastAsLongAsAsked) {
    LinuxKernel kernel;
    const auto start = kernel.Now();
    kernel.Sleep(2ms);
    EXPECT_GE(kernel.Now() - start, 2ms);
}

TEST(CallLimit, EndsASleepingCallAndLeavesLaterOnesAlone) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    char byte = 0;
    {
        const CallLimit limit(5ms);
        ASSERT_EQ(limit.Error(), 0);
        EXPECT_EQ(read(pipe[0], &byte, 1), -1);
        EXPECT_EQ(errno, EINTR);
    }
    ASSERT_EQ(write(pipe[1], "x", 1), 1);
    EXPECT_EQ(read(pipe[0], &byte, 1), 1);
    EXPECT_EQ(usleep(15'000), 0);
    close(pipe[0]);
    close(pipe[1]);
}

} // namespace
} // namespace tqx
