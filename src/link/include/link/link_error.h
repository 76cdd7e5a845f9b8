#pragma once

#include <stdexcept>
#include <string>

namespace tqx {

/// A call on the link that failed. It passes through the transfers and the handlers untouched, up
/// to the top of the application, where the user is told.
///
/// A chip that does not answer is no LinkError: it is a byte like any other (FFh on an idle bus).
class LinkError : public std::runtime_error {
public:
    /// `what`: the operation and the device ("cannot open /dev/i2c-0"); `why`: the cause
    /// ("permission denied"); `advice`: what the user can do, a whole sentence, may be empty.
    LinkError(const std::string& what, const std::string& why, std::string advice);

    const std::string& Advice() const { return m_advice; }

private:
    std::string m_advice;
};

} // namespace tqx
