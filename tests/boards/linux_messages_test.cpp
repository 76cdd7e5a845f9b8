#include "kernel_errors.h"

#include <fstream>
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
    for (const ErrorText& error : ErrorTexts()) {
        EXPECT_NE(page.find("| " + std::string(error.Why) + " |"), std::string::npos) << error.Why;
    }
}

} // namespace
} // namespace tqx
