#pragma once

#include <link/link_error.h>

#include <string>

namespace tqx {

/// The error of a call that fails because a fault was asked for.
inline LinkError RequestedFault(const std::string& what) {
    return {what, "the board was asked to fail", "Switch the fault off on the simulated board."};
}

} // namespace tqx
