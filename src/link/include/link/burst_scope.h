#pragma once

#include "link/link_server.h"

namespace tqx {

/// A run of transfers: BurstMode goes True, and False at the end of the scope, by whatever way it
/// is left. An error of that last call is dropped: it would hide what ended the run.
class BurstScope {
public:
    explicit BurstScope(PrinterPortLink& link)
        : m_link(link) {
        m_link.BurstMode(true);
    }

    ~BurstScope() {
        try {
            m_link.BurstMode(false);
        } catch (...) {
        }
    }

    BurstScope(const BurstScope&) = delete;
    BurstScope& operator=(const BurstScope&) = delete;

private:
    PrinterPortLink& m_link;
};

} // namespace tqx
