#pragma once

#include <link/link_error.h>

namespace tqx {

/// Runs one step of a sequence that goes on whatever becomes of it. False when the link failed.
template <typename Step>
bool PassOver(const Step& step) {
    try {
        step();
        return true;
    } catch (const LinkError&) {
        return false;
    }
}

} // namespace tqx
