#include "build_rules.h"

#include <charconv>

namespace tqx {

int BuildOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    int build = 0;
    std::from_chars(text.data(), text.data() + text.size(), build);
    return build;
}

} // namespace tqx
