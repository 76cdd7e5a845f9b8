#pragma once

#include <QString>

#include <string_view>

namespace tqx {

/// A text of the chip's tables or of the link for a control.
inline QString TextOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace tqx
