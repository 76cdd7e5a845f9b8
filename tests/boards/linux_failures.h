#pragma once

#include <link/link_error.h>

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tqx::test {

/// What the user reads of a failed call: the error, a blank, and the advice. Empty when `work`
/// raises no LinkError.
template <typename Work>
std::string FailureOf(Work&& work) {
    try {
        work();
    } catch (const LinkError& error) {
        return std::string(error.what()) + " " + error.Advice();
    }
    return "";
}

} // namespace tqx::test
