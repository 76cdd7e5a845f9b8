#include "link/link_error.h"

#include <utility>

namespace tqx {

LinkError::LinkError(const std::string& what, const std::string& why, std::string advice)
    : std::runtime_error(what + ": " + why)
    , m_advice(std::move(advice)) {}

} // namespace tqx
