#pragma once

#include "device/channel_table.h"
#include "device/on_link.h"

#include <link/coms_port.h>
#include <link/link_new_com_port.h>
#include <link/link_root.h>

namespace tqx {

/// The chip at hand and the ways to it: one instance per run, shared by every window.
struct Bench {
    /// `factory` makes the link at its first use.
    explicit Bench(LinkFactory factory);

    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    LinkRoot Link;
    LinkNewComPort Bus;
    ComsPort Coms;
    ChannelTable Channels;
    /// Where the handlers of every window tell of a failed link call; filled by the program.
    LinkFailures Failures;
};

} // namespace tqx
