#pragma once

#include <string>

namespace tqx {

/// What the operating system tells of itself.
class OSVersionInfo {
public:
    virtual ~OSVersionInfo() = default;

    /// The build number, in decimal. 950, 1111, 1998, 2222 and 3000 are the systems on which the
    /// machine's SMBus can be reached.
    virtual std::string BuildNumber() = 0;
};

} // namespace tqx
