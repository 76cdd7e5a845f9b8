#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace tqx {

class LinkError;

/// The application's own message box, MainForm::QVNMsgBox, as a panel reaches it: `okOnly` 1 shows
/// only OK as usable. 1 for OK, 0 for Cancel.
using MessageDoor =
    std::function<std::uint8_t(const QString& title, const QString& message, std::uint8_t okOnly)>;

/// What the user is told of a failed link call.
struct LinkFailureNotice {
    QString Title;
    /// What failed and why, then what can be done about it where anything can.
    QString Text;
};

LinkFailureNotice NoticeOf(const LinkError& error);

} // namespace tqx
