#include "adapters.h"
#include "support/fake_kernel.h"

#include <link/link_error.h>
#include <linuxboard/linux_board.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace tqx {
namespace {

using testing::ElementsAre;

auto Numbered(int number) {
    return testing::Field(&Adapter::Number, number);
}

TEST(Adapters, HostControllersComeFirstAndDisplaysNotAtAll) {
    test::FakeKernel kernel;
    kernel.AddAdapter(0, "i915 gmbus dpc");
    kernel.Files["/sys/bus/i2c/devices/i2c-0/../class"] = "0x030000\n";
    kernel.AddAdapter(1, "AUX A/DDI A/PHY A");
    kernel.RealPaths["/sys/bus/i2c/devices/i2c-1"] = "/sys/devices/pci0000:00/drm/card0/i2c-1";
    kernel.AddAdapter(2, "SMBus stub driver");
    kernel.AddAdapter(12, "SMBus PIIX4 adapter port 0 at 0b00");
    kernel.AddAdapter(9, "SMBus I801 adapter at f000");
    kernel.Files["/sys/bus/i2c/devices/i2c-9/../class"] = "0x0c0500\n";
    kernel.Files["/sys/bus/i2c/devices/9-0050/name"] = "spd\n";
    EXPECT_THAT(FindAdapters(kernel), ElementsAre(Numbered(9), Numbered(12), Numbered(2)));
}

TEST(Adapters, TheBaseAddressIsInTheNameOrInTheResources) {
    test::FakeKernel kernel;
    const auto baseOf = [&](const char* name) {
        return BaseAddressOf(kernel, {.Number = 0, .Name = name});
    };
    EXPECT_EQ(baseOf("SMBus PIIX4 adapter port 2 at 0b00"), 0xB00U);
    EXPECT_EQ(baseOf("SMBus PIIX4 adapter SDA0 at 0xfec0"), 0xFEC0U);
    for (const char* none : {"SMBus at -1", "SMBus at 100000000", "SMBus at 700 or so",
                             "i2c-tiny-usb at bus 001 device 005", "SMBus stub driver"}) {
        EXPECT_EQ(baseOf(none), 0U) << none;
    }
    kernel.Files["/sys/bus/i2c/devices/i2c-0/../resource"] =
        "0x00000000fe101000 0x00000000fe1010ff 0x0000000000040200\n"
        "0x0000000000000000 0x0000000000000000 0x0000000000000000\n"
        "0x000000000000efa0 0x000000000000efbf 0x0000000000040101\n";
    EXPECT_EQ(baseOf("SMBus iSMT adapter"), 0xEFA0U);
}

TEST(LinuxVersion, IsABuildWithSMBusWhereThereIsAnAdapter) {
    auto owned = std::make_unique<test::FakeKernel>();
    test::FakeKernel& kernel = *owned;
    LinuxBoard board(std::move(owned));
    const auto version = board.OSVersionInfoFactory()();
    EXPECT_EQ(version->BuildNumber(), "6.1.0-37-amd64");
    kernel.AddAdapter(0, "SMBus PIIX4 adapter at 0700");
    EXPECT_EQ(version->BuildNumber(), "2222");
    kernel.Files["/sys/bus/i2c/devices/i2c-0/../class"] = "0x030000\n";
    EXPECT_EQ(version->BuildNumber(), "6.1.0-37-amd64");
}

} // namespace
} // namespace tqx
