#include "strip_chart/inks.h"

#include "controls/look.h"

#include <algorithm>
#include <cmath>

namespace tqx {
namespace {

constexpr std::array<QRgb, StripVariableCount> TraceColours = {
    0xFFFF8080, 0xFF808080, 0xFF400040, 0xFF004040, 0xFFFF0080, 0xFF0080FF,
    0xFFFF80C0, 0xFFFF80FF, 0xFFFF0000, 0xFF800080, 0xFF80FF00, 0xFF0080C0,
    0xFF8080C0, 0xFFFF00FF, 0xFF804040, 0xFFFF8040, 0xFF004080, 0xFF808000};

/// Relative luminance as the web's accessibility guidelines define it.
double Luminance(QRgb colour) {
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

} // namespace

double ContrastRatio(QRgb ink, QRgb paper) {
    const double first = Luminance(ink) + 0.05;
    const double second = Luminance(paper) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

StripInks DefaultStripInks() {
    StripInks inks{};
    for (std::size_t i = 0; i < inks.size(); ++i) {
        inks[i] = {TraceColours[i],
                   ContrastRatio(TraceColours[i], look::Paper) < LeastStripContrast};
    }
    return inks;
}

} // namespace tqx
