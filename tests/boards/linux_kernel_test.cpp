#include "kernel_files.h"
#include "linux_kernel.h"
#include "support/fake_kernel.h"

#include <cerrno>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

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
    EXPECT_EQ(kernel.RightsOf("/dev/null")->Group, "root");
    const auto start = kernel.Now();
    kernel.Sleep(2ms);
    EXPECT_GE(kernel.Now() - start, 2ms);

    const OpenFile null(kernel, static_cast<int>(kernel.OpenNode("/dev/null").Value));
    for (const KernelAnswer& answer :
         {kernel.I2CFunctions(null.File()), kernel.I2CAddress(null.File(), 0x2C),
          kernel.SMBusReadByte(null.File(), 0x16), kernel.SMBusWriteByte(null.File(), 0x16, 0),
          kernel.PortClaim(null.File()), kernel.PortWriteData(null.File(), 0),
          kernel.PortReadStatus(null.File())}) {
        EXPECT_EQ(answer.Error, ENOTTY);
    }
}

} // namespace
} // namespace tqx
