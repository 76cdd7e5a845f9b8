#include "kernel_errors.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace tqx {
namespace {

/// Whoever meets a message looks it up.
TEST(Messages, EveryCauseStandsInTheHardwarePage) {
    std::ifstream file(TQX_SOURCE_DIR "/docs/hardware.md");
    std::ostringstream text;
    text << file.rdbuf();
    const std::string page = text.str();
    for (const auto& texts : {BusErrors(), PortErrors(), OpenErrors()}) {
        for (const ErrorText& error : texts) {
            const std::string why(error.Why.substr(0, error.Why.find(" open in")));
            EXPECT_NE(page.find("| " + why), std::string::npos) << why;
            EXPECT_FALSE(error.Advice.empty()) << why;
        }
    }
}

} // namespace
} // namespace tqx
