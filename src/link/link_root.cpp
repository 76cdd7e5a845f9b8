#include "link/link_root.h"

#include <utility>

namespace tqx {

LinkRoot::LinkRoot(LinkFactory factory)
    : m_factory(std::move(factory)) {}

LinkServer& LinkRoot::operator*() {
    if (!m_server) {
        m_server = m_factory(Setup);
    }
    return *m_server;
}

} // namespace tqx
