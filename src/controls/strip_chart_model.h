#pragma once

#include "strip_chart_geometry.h"
#include "strip_chart_inks.h"

#include <QString>

#include <optional>

namespace tqx {

inline constexpr int StripCaptionCount = 19;
inline constexpr int TitleCaption = 0;
inline constexpr int TimeCaption = 1;
inline constexpr int FirstLegendCaption = 2;

struct StripCaption {
    QString Text;
    QRgb Colour;
};

/// All that a chart shows.
struct StripModel {
    StripHistory History;
    StripWall Wall;
    StripZone Zone;
    StripView View;
    StripInks Inks = DefaultStripInks();
    std::array<StripCaption, StripCaptionCount> Captions;
    bool Antialiased = true;

    /// The text of the legend line of `variable`; empty when it has none.
    const QString& Legend(int variable) const {
        return Captions[static_cast<std::size_t>(FirstLegendCaption + variable)].Text;
    }

    StripInk& Ink(int variable) { return Inks[static_cast<std::size_t>(variable)]; }

    const StripInk& Ink(int variable) const { return Inks[static_cast<std::size_t>(variable)]; }
};

/// What the clock on the wall of the place shows at a moment of the run, as the time axis writes
/// it: "%H %M %S".
QString StripClockText(const StripModel& model, StripTime time);

} // namespace tqx
