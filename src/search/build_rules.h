#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tqx {

/// The build number that the text of the operating system begins with; 0 where there is none.
int BuildOf(std::string_view text);

/// True on the systems on which the machine's own SMBus can be reached.
constexpr bool BuildReachesSMBus(int build) {
    constexpr std::array Reaching{950, 1111, 1998, 2222, 3000};
    return std::ranges::find(Reaching, build) != Reaching.end();
}

/// True on the systems that have no USB.
constexpr bool BuildLacksUSB(int build) {
    return build == 950 || build == 1111;
}

} // namespace tqx
