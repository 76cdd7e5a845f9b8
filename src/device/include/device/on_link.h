#pragma once

#include <link/link_error.h>

#include <functional>
#include <type_traits>
#include <utility>

namespace tqx {

/// Told of a link call that failed and ended a handler. Whoever has called that handler is still at
/// work, perhaps in the middle of a drag: what is done about the failure comes later, by itself.
using LinkFailures = std::function<void(const LinkError&)>;

/// `handler`, which reaches the link, as it is connected to what calls it: a button, a timer, a
/// gauge. A LinkError ends the handler and is told to `failures`, which must outlive the
/// connection, so that none passes through code that knows no exceptions. The handler takes as many
/// of the caller's arguments as it wants.
template <class Handler>
auto OnLink(const LinkFailures& failures, Handler handler) {
    return
        [&failures, handler = std::move(handler)](
            auto&&... arguments) -> std::invoke_result_t<const Handler&, decltype(arguments)...> {
            try {
                handler(std::forward<decltype(arguments)>(arguments)...);
            } catch (const LinkError& error) {
                failures(error);
            }
        };
}

} // namespace tqx
