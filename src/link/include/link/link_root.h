#pragma once

#include "link/link_server.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace tqx {

/// Tells the user something in the middle of a transfer, and comes back when it has been read.
using NoticeDoor = std::function<void(std::string_view title, std::string_view message)>;

/// What the program tells the link; the link looks it up at each use.
struct LinkSetup {
    /// Where the link's notices go; filled by the window that can show them. Notices that come
    /// while it is empty are dropped.
    NoticeDoor Notice;
    /// Length of one bit delay, on the scale of the line layer. 0 until the main window loads.
    std::uint8_t BitDelayCount = 0;
};

/// Makes the link of this run. The setup stays good for the link's whole life.
using LinkFactory = std::function<std::unique_ptr<LinkServer>(const LinkSetup& setup)>;

/// Holds the LinkServer of the run, which is made at its first use and kept until the end.
class LinkRoot {
public:
    explicit LinkRoot(LinkFactory factory)
        : m_factory(std::move(factory)) {}

    LinkRoot(const LinkRoot&) = delete;
    LinkRoot& operator=(const LinkRoot&) = delete;

    LinkServer& operator*() {
        if (!m_server) {
            m_server = m_factory(Setup);
        }
        return *m_server;
    }

    LinkServer* operator->() { return &**this; }

    /// Ends the link early: lines are parked, ports let go. A use after that would make a new one.
    void LetGo() noexcept { m_server.reset(); }

    LinkSetup Setup;

private:
    LinkFactory m_factory;
    std::unique_ptr<LinkServer> m_server;
};

} // namespace tqx
