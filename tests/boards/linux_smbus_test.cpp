#include "i2c_smbus.h"
#include "linux_failures.h"
#include "support/fake_kernel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace tqx {
namespace {

using test::FailureOf;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* Host = "SMBus I801 adapter at 0700";
constexpr const char* USB = "i2c-tiny-usb at bus 001 device 005";

class I2CSMBusTest : public testing::Test {
protected:
    test::FakeKernel kernel;
    I2CSMBus smbus{kernel};
};

TEST_F(I2CSMBusTest, WithoutAnAdapterASearchFindsNothingAndATransferSaysWhy) {
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0xFF);
    EXPECT_EQ(smbus.BaseAddress(), 0U);
    const std::string why = "this machine has no SMBus adapter";
    EXPECT_THAT(FailureOf([&] { smbus.ReadByte(0x2C, 0x20); }), HasSubstr(why));
    EXPECT_THAT(FailureOf([&] { smbus.WriteByte(0x2C, 0x20, 1); }), HasSubstr(why));
}

TEST_F(I2CSMBusTest, ATransferOnTheSameAddressIsOneSystemCall) {
    kernel.AddAdapter(0, Host);
    kernel.AddChip(0, 0x2C);
    kernel.AddChip(0, 0x2D);
    EXPECT_EQ(smbus.BaseAddress(), 0x700U);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    EXPECT_EQ(kernel.TakeCalls(),
              "OpenNode /dev/i2c-0; I2CFunctions; I2CAddress 2C; SMBusReadByte 16");
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
    smbus.WriteByte(0x2C, 0x21, 0x55);
    EXPECT_EQ(kernel.TakeCalls(), "SMBusReadByte 20; SMBusWriteByte 21 55");
    EXPECT_EQ(smbus.ReadByte(0x2D, 0x20), 0x2D);
    EXPECT_EQ(kernel.TakeCalls(), "I2CAddress 2D; SMBusReadByte 20");
}

TEST_F(I2CSMBusTest, FindsTheChipOnWhicheverAdapterItIs) {
    kernel.AddAdapter(0, USB);
    kernel.AddAdapter(1, Host);
    kernel.AddAdapter(2, "i2c-mcp2221");
    kernel.AddChip(1, 0x2C, 0x5C); // another maker's
    kernel.AddChip(0, 0x2C);
    kernel.AddChip(2, 0x2D);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    EXPECT_EQ(smbus.ReadByte(0x2D, 0x16), 0x41);
    EXPECT_EQ(smbus.ReadByte(0x2E, 0x16), 0xFF);

    smbus.WriteByte(0x2C, 0x30, 0x11);
    smbus.WriteByte(0x2D, 0x30, 0x22);
    EXPECT_EQ((kernel.Chips[{"/dev/i2c-0", 0x2C}][0x30]), 0x11);
    EXPECT_EQ((kernel.Chips[{"/dev/i2c-1", 0x2C}][0x30]), 0);
    EXPECT_EQ((kernel.Chips[{"/dev/i2c-2", 0x2D}][0x30]), 0x22);
    EXPECT_EQ(kernel.OpenFiles(), 1);
}

TEST_F(I2CSMBusTest, AChipThatMovedToAnotherAdapterIsFoundByTheNextSearch) {
    kernel.AddAdapter(0, Host);
    kernel.AddAdapter(1, USB);
    kernel.AddChip(0, 0x2C);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    kernel.Chips.clear();
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0xFF);
    kernel.AddChip(1, 0x2C);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
}

TEST_F(I2CSMBusTest, NoOtherChipAnswersForTheChosenOne) {
    kernel.AddAdapter(0, Host);
    kernel.AddAdapter(1, USB);
    kernel.AddChip(0, 0x2C);
    kernel.AddChip(1, 0x2C);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    smbus.SlaveAddress(0x2C);
    kernel.NextErrors["SMBusReadByte"] = {EAGAIN};
    EXPECT_THROW(smbus.ReadByte(0x2C, 0x16), LinkError);
    kernel.Chips.erase({"/dev/i2c-0", 0x2C});
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0xFF);
    smbus.WriteByte(0x2C, 0x30, 0x11);
    EXPECT_EQ((kernel.Chips[{"/dev/i2c-1", 0x2C}][0x30]), 0);
}

TEST_F(I2CSMBusTest, AFailingAdapterDoesNotHideTheChipOnAnother) {
    kernel.AddAdapter(0, Host);
    kernel.AddAdapter(1, USB);
    kernel.AddChip(1, 0x2C);
    kernel.Nodes["/dev/i2c-0"] = ENOENT;
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    kernel.Nodes["/dev/i2c-1"] = EIO;
    EXPECT_THAT(FailureOf([&] { smbus.ReadByte(0x2D, 0x16); }), HasSubstr("modprobe i2c-dev"));
}

TEST_F(I2CSMBusTest, AnAddressOfAKernelDriverIsNamedAndLeftAlone) {
    kernel.AddAdapter(0, Host);
    kernel.AddChip(0, 0x2D);
    kernel.OwnedByDriver.insert({"/dev/i2c-0", 0x2D});
    kernel.RealPaths["/sys/bus/i2c/devices/0-002d/driver"] = "/sys/bus/i2c/drivers/lm85";
    EXPECT_THAT(FailureOf([&] { smbus.ReadByte(0x2D, 0x16); }),
                AllOf(HasSubstr("driver lm85 owns"), HasSubstr("echo 0-002d")));
    EXPECT_THAT(FailureOf([&] { smbus.WriteByte(0x2D, 0x20, 1); }), HasSubstr("lm85"));
    EXPECT_THAT(kernel.TakeCalls(), Not(HasSubstr("SMBusWriteByte")));

    // Where the chip is at another address, that one is just another chip of the machine.
    kernel.AddChip(0, 0x2E);
    EXPECT_EQ(smbus.ReadByte(0x2D, 0x16), 0xFF);
    EXPECT_EQ(smbus.ReadByte(0x2E, 0x16), 0x41);
}

TEST_F(I2CSMBusTest, AnAdapterThatVanishesIsClosedAndFoundAgainByItsName) {
    kernel.AddAdapter(0, Host);
    kernel.AddAdapter(3, USB);
    kernel.AddChip(3, 0x2C);
    kernel.AddChip(0, 0x2C, 0x5C);
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x16), 0x41);
    kernel.RemoveAdapter(3);
    EXPECT_THAT(FailureOf([&] { smbus.ReadByte(0x2C, 0x20); }),
                AllOf(HasSubstr("/dev/i2c-3"), HasSubstr("the device is gone")));
    EXPECT_EQ(kernel.OpenFiles(), 0);
    // Not a byte goes to what stands at this address on another adapter.
    EXPECT_THAT(FailureOf([&] { smbus.WriteByte(0x2C, 0x20, 0); }), HasSubstr("gone"));
    EXPECT_EQ((kernel.Chips[{"/dev/i2c-0", 0x2C}][0x20]), 0x2C);

    kernel.AddAdapter(5, USB);
    kernel.AddChip(5, 0x2C);
    kernel.TakeCalls();
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
    EXPECT_THAT(kernel.TakeCalls(), HasSubstr("OpenNode /dev/i2c-5"));
    EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
    EXPECT_EQ(kernel.TakeCalls(), "SMBusReadByte 20");
}

/// Most adapters tell it in a way of their own, some as if only nobody answered.
TEST_F(I2CSMBusTest, AnAdapterThatVanishesIsToldWhateverTheErrorIs) {
    kernel.AddAdapter(3, USB);
    kernel.AddChip(3, 0x2C);
    for (const int error : {ENODEV, ENXIO, EREMOTEIO, EIO, ESHUTDOWN}) {
        EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
        kernel.RemoveAdapter(3);
        kernel.NobodyAnswers = error;
        EXPECT_THAT(FailureOf([&] { smbus.ReadByte(0x2C, 0x20); }), HasSubstr("is gone")) << error;
        kernel.AddAdapter(3, USB);
    }
}

TEST_F(I2CSMBusTest, AFailureNamesTheTransferAndIsNotRepeated) {
    kernel.AddAdapter(0, Host);
    kernel.AddChip(0, 0x2C);

    struct {
        int Error;
        const char* Read;
    } const failures[] = {{ETIMEDOUT, "no answer in time"},
                          {EIO, "no answer"},
                          {EBUSY, "another program keeps it"},
                          {EAGAIN, "temporarily"}};

    for (const auto& [error, text] : failures) {
        EXPECT_EQ(smbus.ReadByte(0x2C, 0x20), 0x2C);
        kernel.TakeCalls();
        kernel.NextErrors["SMBusReadByte"] = {error};
        EXPECT_THAT(
            FailureOf([&] { smbus.ReadByte(0x2C, 0x20); }),
            AllOf(HasSubstr("cannot read register 20h of 2Ch on /dev/i2c-0"), HasSubstr(text)));
        EXPECT_EQ(kernel.TakeCalls(), "SMBusReadByte 20");
        kernel.NextErrors["SMBusWriteByte"] = {error};
        EXPECT_THAT(FailureOf([&] { smbus.WriteByte(0x2C, 0x20, 1); }),
                    AllOf(HasSubstr("cannot write register 20h of 2Ch"), HasSubstr(text)));
        EXPECT_EQ(kernel.TakeCalls(), "SMBusWriteByte 20 01");
    }
}

} // namespace
} // namespace tqx
