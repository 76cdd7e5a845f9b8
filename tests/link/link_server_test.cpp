#include "support/recording_link.h"

#include <link/burst_scope.h>
#include <link/link_parts.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace tqx {
namespace {

using testing::ElementsAre;

TEST(PartsLink, StartsOnThePrinterPortAndGivesItsParts) {
    auto printerPort = std::make_unique<test::RecordingLink>();
    auto smbus = std::make_unique<test::RecordingLink>();
    printerPort->Ports = 3;
    smbus->SMBusBase = 0x1234;
    PartsLinkServer server(std::move(printerPort), std::move(smbus));
    EXPECT_EQ(server.ActiveMedium(), ActivePrinterPort);
    EXPECT_EQ(server.PrinterPortLink().PortCount(), 3);
    EXPECT_EQ(server.SMBusLink().BaseAddress(), 0x1234U);
    server.ActiveMedium(ActiveSMBus);
    EXPECT_EQ(server.ActiveMedium(), ActiveSMBus);
}

TEST(Burst, EndsWithItsScopeOnEveryWayOut) {
    test::RecordingLink link;
    { const BurstScope burst(link); }
    EXPECT_THAT(link.Take(),
                ElementsAre("PrinterPortLink.BurstMode 1", "PrinterPortLink.BurstMode 0"));
    link.FailOn = "PrinterPortLink.BurstMode 0";
    const auto failInBurst = [&link] {
        const BurstScope burst(link);
        throw std::runtime_error("in the middle");
    };
    EXPECT_THROW(failInBurst(), std::runtime_error);
    EXPECT_THAT(link.Take(),
                ElementsAre("PrinterPortLink.BurstMode 1", "PrinterPortLink.BurstMode 0"));
}

} // namespace
} // namespace tqx
