#pragma once

#include <QString>

namespace tqx {

class LinkError;

/// What the user is told of a failed link call.
struct LinkFailureNotice {
    QString Title;
    /// What failed and why, then what can be done about it where anything can.
    QString Text;
};

LinkFailureNotice NoticeOf(const LinkError& error);

} // namespace tqx
