#include "support/recording_link.h"

#include <link/coms_port.h>
#include <link/link_new_com_port.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RegisterTransfers : public testing::Test {
protected:
    test::RecordingLink* link = new test::RecordingLink;
    LinkRoot root{[this](const LinkSetup&) { return std::unique_ptr<LinkServer>(link); }};
    LinkNewComPort bus{root};
    ComsPort coms{root, bus.BusCell};

    void SetUp() override {
        root->ActiveMedium(ActivePrinterPort);
        link->Take();
    }
};

TEST_F(RegisterTransfers, TheCellGoesToTheBoardOnMediumOne) {
    bus.BusCell = {.SlaveAddress = 0x58, .PortAddress = 0x278, .RegisterPointer = 0xFF};
    bus.BusCell.ComsMedium = ComsPrinterPort;
    bus.BusCell.WriteValue = 0xFF;
    bus.WriteRegister();
    bus.ReadRegister();
    EXPECT_THAT(link->Take(), ElementsAre("BoardBus.PortAddress 278", "BoardBus.WriteByte 58 FF FF",
                                          "BoardBus.ReadByte 58 FF"));
    EXPECT_EQ(bus.BusCell.ReadValue, 0xFF);
}

TEST_F(RegisterTransfers, TheCellGoesToTheSMBusOnEveryOtherMedium) {
    bus.BusCell = {.SlaveAddress = 0x2C, .RegisterPointer = 0x16, .WriteValue = 7};
    for (const std::uint8_t medium : {0, 2, 255}) {
        bus.BusCell.ComsMedium = medium;
        bus.WriteRegister();
        bus.ReadRegister();
        EXPECT_THAT(link->Take(),
                    ElementsAre("SMBusLink.WriteByte 2C 16 7", "SMBusLink.ReadByte 2C 16"));
    }
}

TEST_F(RegisterTransfers, TheByteOperationsTakeMediumAndAddressFromTheLinkItself) {
    bus.BusCell.ReadValue = 0x77;
    link->SlaveAddress(0x5A);
    link->Take();
    coms.WriteRegisterByte(0x0A, 0x55);
    EXPECT_EQ(coms.ReadRegisterByte(0x0A), 0x55);
    EXPECT_THAT(link->Take(), ElementsAre("BoardBus.WriteByte 5A A 55", "BoardBus.ReadByte 5A A"));
    EXPECT_EQ(bus.BusCell.ReadValue, 0x77);

    constexpr std::int16_t Unknown = 2;
    root->ActiveMedium(Unknown);
    link->Take();
    coms.WriteRegisterByte(1, 2);
    EXPECT_EQ(coms.ReadRegisterByte(1), 0);
    EXPECT_THAT(link->Take(), IsEmpty());
}

TEST_F(RegisterTransfers, RawAccessWritesToTheBoardsPortAndReadsAnyAddress) {
    bus.BusCell.PortAddress = 0x278;
    link->PortStatus = 0xEF;
    root->PrinterPortLink().BoardBus().PortAddress(0x3BC);
    link->Take();
    coms.PortOut(0xB3);
    EXPECT_EQ(coms.PortIn(static_cast<std::uint16_t>(coms.PortAddress() + 1)), 0xEF);
    EXPECT_THAT(link->Take(), ElementsAre("BoardBus.PortWrite 3BC B3", "BoardBus.PortRead 279"));
}

TEST_F(RegisterTransfers, SkippedSilencesTheByteOperationsAlone) {
    coms.Skipped = true;
    coms.WriteRegisterByte(1, 2);
    EXPECT_EQ(coms.ReadRegisterByte(0x16), 0);
    bus.BusCell.RegisterPointer = 0x16;
    bus.ReadRegister();
    EXPECT_THAT(link->Take(), ElementsAre("SMBusLink.ReadByte 0 16"));
}

} // namespace
} // namespace tqx
