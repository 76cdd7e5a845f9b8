#pragma once

#include "controls/strip_captions.h"
#include "strip_chart/geometry.h"
#include "strip_chart/history.h"

#include <QColor>
#include <QString>

#include <optional>

namespace tqx::strip {

/// How a trace is drawn.
struct Ink {
    QRgb Colour;
    bool Cased; ///< too light for white paper alone: it gets a thin dark casing
    bool Shown = true;

    bool operator==(const Ink&) const = default;
};

using Inks = std::array<Ink, VariableCount>;

/// The inks of variables 0 to 17, all shown.
Inks DefaultInks();

/// The contrast of `ink` to `paper`, from 1 to 21.
double ContrastRatio(QRgb ink, QRgb paper);

/// Below this contrast to the paper a trace or a swatch is cased.
inline constexpr double LeastContrast = 2.0;

/// A colour as the domain writes it, 0x00BBGGRR, and back.
constexpr std::uint32_t ToBgr(QRgb colour) {
    return (colour & 0xFFU) << 16 | (colour & 0xFF00U) | (colour >> 16 & 0xFFU);
}

constexpr QRgb FromBgr(std::uint32_t colour) {
    return 0xFF000000U | ToBgr(colour);
}

struct Caption {
    QString Text;
    QRgb Colour;
};

/// The two moments at which a chart is read.
struct Cursors {
    std::array<std::optional<Time>, 2> At;
    int Active = 0; ///< the one that keys move

    bool Any() const { return At[0].has_value() || At[1].has_value(); }

    void Place(int cursor, Time time) {
        At[static_cast<std::size_t>(cursor)] = time;
        Active = cursor;
    }

    bool operator==(const Cursors&) const = default;
};

/// All that a chart shows.
struct Model {
    strip::History History;
    strip::Wall Wall;
    strip::Zone Zone;
    strip::View View;
    strip::Inks Inks = DefaultInks();
    std::array<Caption, CaptionCount> Captions;
    /// What variables without a legend line are called; one may have none of its own.
    std::array<QString, VariableCount> Names;
    strip::Cursors Cursors;
    int LegendPick = -1;  ///< variable whose legend line the keyboard is on; -1 for none
    QString Unit;         ///< of all values; may be empty
    bool Stopped = false; ///< no samples are to come for now

    /// The caption that is the legend line of `variable`, one of the first LegendLines.
    Caption& LegendCaption(int variable) {
        return Captions[FirstLegendCaption + static_cast<std::size_t>(variable)];
    }

    const Caption& LegendCaption(int variable) const {
        return Captions[FirstLegendCaption + static_cast<std::size_t>(variable)];
    }

    /// The text of the legend line of `variable`; empty when it has none.
    QString Legend(int variable) const {
        return variable < LegendLines ? LegendCaption(variable).Text : QString();
    }

    /// What `variable` is called, whether it has a legend line or not.
    QString Name(int variable) const;

    /// Whether `variable` has anything to show.
    bool HasSamples(int variable) const { return !History.Trace(variable).Empty(); }

    void ToggleTrace(int variable) { Ink(variable).Shown = !Ink(variable).Shown; }

    /// Shows `variable` alone, or all again when it is alone already.
    void ShowOnly(int variable);
    void ShowAll();

    strip::Ink& Ink(int variable) { return Inks[static_cast<std::size_t>(variable)]; }

    const strip::Ink& Ink(int variable) const { return Inks[static_cast<std::size_t>(variable)]; }
};

/// The traces whose last sample on view lies above or below the range on view, a bit each.
struct OffScale {
    std::uint32_t Above = 0;
    std::uint32_t Below = 0;

    bool operator==(const OffScale&) const = default;
};

OffScale FindOffScale(const Model& model);

/// What the clock on the wall of the place shows at a moment of the run, as the time axis writes
/// it: "%H %M %S".
QString ClockText(const Model& model, Time time);

/// The day at a moment of the run: "2026-01-31".
QString DateText(const Model& model, Time time);

/// The clock with milliseconds; "-" while the chart is empty and no moment has a name.
QString MomentText(const Model& model, Time time);

/// What is said of a view that stands still or a chart that takes no samples; else empty.
QString StandstillText(const Model& model);

/// The legend line that the keyboard is on, and the traces that are hidden; empty when there are
/// none of either.
QString LegendText(const Model& model);

/// What the cursors of a chart read: a line per trace that is shown, a column per cursor and, with
/// both, one of differences, second minus first.
struct Readout {
    struct Line {
        int Variable;
        QString Name;
        std::vector<QString> Values;

        bool operator==(const Line&) const = default;
    };

    std::vector<int> Cursors;      ///< which ones stand, 0 and 1
    std::vector<QString> Headings; ///< moments of the cursors, then what lies between them
    std::vector<Line> Lines;
    QString Unit; ///< of all values

    /// The table as text, with tabs between its columns.
    QString Text() const;

    bool operator==(const Readout&) const = default;
};

/// A cursor reads the sample before it. It reads nothing, "-", in a gap and where nothing was
/// recorded; a value that is only known to the width of a slot of time is marked with "~".
Readout ReadOut(const Model& model);

} // namespace tqx::strip
