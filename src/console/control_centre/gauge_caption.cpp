#include "control_centre/gauge_caption.h"

#include <controls/number_text.h>
#include <device/rounding.h>

#include <array>
#include <charconv>

namespace tqx {

QString GaugeCaption(double reading, std::string_view suffix) {
    // Adding 0 turns a negative zero, which a small negative reading rounds to, into a plain one.
    const double rounded = RoundToEven(reading, 3) + 0.0;
    std::array<char, 352> text{}; // the longest double without an exponent, and three decimals
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed);
    QString caption = rounded < 0 ? QString() : QStringLiteral(" ");
    caption += QLatin1String(text.data(), end - text.data());
    return caption + TextOf(suffix);
}

} // namespace tqx
