#pragma once

#include "strip_chart/history.h"

#include <QColor>

namespace tqx {

/// How a trace is drawn.
struct StripInk {
    QRgb Colour;
    bool Cased; ///< too light for white paper alone: it gets a thin dark casing
    bool Shown = true;

    bool operator==(const StripInk&) const = default;
};

using StripInks = std::array<StripInk, StripVariableCount>;

/// The inks of variables 0 to 17, all shown.
StripInks DefaultStripInks();

/// The contrast of `ink` to `paper`, from 1 to 21.
double ContrastRatio(QRgb ink, QRgb paper);

/// Below this contrast to the paper a trace or a swatch is cased.
inline constexpr double LeastStripContrast = 2.0;

/// A colour as the domain writes it, 0x00BBGGRR, and back.
constexpr std::uint32_t ToBgr(QRgb colour) {
    return (colour & 0xFFU) << 16 | (colour & 0xFF00U) | (colour >> 16 & 0xFFU);
}

constexpr QRgb FromBgr(std::uint32_t colour) {
    return 0xFF000000U | ToBgr(colour);
}

} // namespace tqx
