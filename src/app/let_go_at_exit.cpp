#include "app/let_go_at_exit.h"

#include <cstdlib>
#include <utility>

namespace tqx {
namespace {

LinkRoot* theLink = nullptr;

/// Runs on the stack of whoever called `exit`, perhaps in the middle of a transfer that waits for
/// the user. It never goes on, so the link may go from under it.
void LetGo() {
    if (LinkRoot* const link = std::exchange(theLink, nullptr)) {
        link->LetGo();
    }
}

} // namespace

LetGoAtExit::LetGoAtExit(LinkRoot& link) {
    // A handler cannot be taken back; it finds nothing to do once this object has gone. Without one
    // the kernel still lets the port go, with the lines as they are.
    [[maybe_unused]] static const int registered = std::atexit(LetGo);
    theLink = &link;
}

LetGoAtExit::~LetGoAtExit() {
    theLink = nullptr;
}

} // namespace tqx
