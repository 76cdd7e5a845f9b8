#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace tqx {

/// The application's own message box, MainForm::QVNMsgBox, as a panel reaches it: `okOnly` 1 shows
/// only OK as usable. 1 for OK, 0 for Cancel.
using MessageDoor =
    std::function<std::uint8_t(const QString& title, const QString& message, std::uint8_t okOnly)>;

} // namespace tqx
