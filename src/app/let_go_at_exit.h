#pragma once

#include <link/link_root.h>

namespace tqx {

/// Ends the link where the process ends in the middle of the event loop, as Qt has it when the
/// display is lost: by `exit` on X11, by `_exit` on Wayland. What stands on main's stack is not
/// destroyed then, and the link would leave its port with the lines as they are.
///
/// There is one at a time, made and destroyed on the application's thread, and while it lives Qt's
/// messages pass through it. Of the program only the link and the board behind it are touched, and
/// neither rests on Qt, which may be half taken down by then.
class LetGoAtExit {
public:
    /// `link`, and the board that its factory refers to, must outlive this object.
    explicit LetGoAtExit(LinkRoot& link);
    ~LetGoAtExit();

    LetGoAtExit(const LetGoAtExit&) = delete;
    LetGoAtExit& operator=(const LetGoAtExit&) = delete;
};

} // namespace tqx
