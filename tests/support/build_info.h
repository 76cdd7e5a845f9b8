#pragma once

#include <link/link_server.h>

#include <string>
#include <utility>

namespace tqx::test {

/// An operating system of a given build.
class BuildInfo : public OSVersionInfo {
public:
    explicit BuildInfo(std::string build)
        : m_build(std::move(build)) {}

    std::string BuildNumber() override { return m_build; }

private:
    std::string m_build;
};

} // namespace tqx::test
