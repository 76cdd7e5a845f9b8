#include "strip_chart/model.h"

#include "controls/look.h"
#include "strip_chart/columns.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tqx::strip {
namespace {

constexpr std::array<QRgb, VariableCount> TraceColours = {
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

Inks DefaultInks() {
    Inks inks{};
    for (std::size_t i = 0; i < inks.size(); ++i) {
        inks[i] = {TraceColours[i], ContrastRatio(TraceColours[i], look::Paper) < LeastContrast};
    }
    return inks;
}

QString Model::Name(int variable) const {
    if (QString legend = Legend(variable); !legend.isEmpty()) {
        return legend;
    }
    const QString& own = Names[static_cast<std::size_t>(variable)];
    if (!own.isEmpty()) {
        return own;
    }
    return QCoreApplication::translate("StripChart", "Variable %1").arg(variable);
}

void Model::ShowOnly(int variable) {
    const auto shown =
        std::count_if(Inks.begin(), Inks.end(), [](const strip::Ink& ink) { return ink.Shown; });
    const bool alone = shown == 1 && Ink(variable).Shown;
    for (strip::Ink& ink : Inks) {
        ink.Shown = alone;
    }
    Ink(variable).Shown = true;
}

void Model::ShowAll() {
    for (strip::Ink& ink : Inks) {
        ink.Shown = true;
    }
}

OffScale FindOffScale(const Model& model) {
    OffScale found;
    const Range values = model.View.Values();
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (!model.Ink(variable).Shown || !model.HasSamples(variable)) {
            continue;
        }
        const Trace& trace = model.History.Trace(variable);
        double value = trace.Raw().Newest().Value;
        if (!model.View.Following()) {
            const auto reading = trace.ReadAt(model.View.End() - 1);
            value = reading ? reading->Value : values.Low;
        }
        const std::uint32_t bit = 1U << variable;
        found.Above |= value > values.High ? bit : 0;
        found.Below |= value < values.Low ? bit : 0;
    }
    return found;
}

QString ClockText(const Model& model, Time time) {
    const Time wall = model.Wall.At(time);
    const Time seconds = wall / Second + model.Zone(wall);
    return QString::asprintf("%02d %02d %02d", static_cast<int>(seconds / 3600 % 24),
                             static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
}

QString DateText(const Model& model, Time time) {
    const Time wall = model.Wall.At(time);
    return QDateTime::fromMSecsSinceEpoch(wall / 1'000'000, Qt::OffsetFromUTC, model.Zone(wall))
        .toString(QStringLiteral("yyyy-MM-dd"));
}

QString MomentText(const Model& model, Time time) {
    if (!model.Wall.Known()) {
        return QStringLiteral("-");
    }
    const Time milliseconds = model.Wall.At(time) % Second / 1'000'000;
    return ClockText(model, time) + QString::asprintf(".%03d", static_cast<int>(milliseconds));
}

QString StandstillText(const Model& model) {
    const View& view = model.View;
    QStringList parts;
    const auto say = [&](const char* what, Time moment) {
        parts << (model.Wall.Known()
                      ? QStringLiteral("%1 %2.").arg(QLatin1String(what), ClockText(model, moment))
                      : QStringLiteral("%1.").arg(QString::fromLatin1(what).section(u' ', 0, 0)));
    };
    if (view.Frozen()) {
        say("Frozen at", view.FrozenAt());
    } else if (!view.Following()) {
        say("Up to", std::min(view.End(), model.History.Newest()));
    }
    if (model.Stopped) {
        say("Stopped at", model.History.Newest());
    } else if (!view.Following()) {
        parts << QStringLiteral("New samples are kept.");
    }
    return parts.join(u' ');
}

QString LegendText(const Model& model) {
    QStringList hidden;
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (!model.Ink(variable).Shown && !model.Legend(variable).isEmpty()) {
            hidden << model.Name(variable);
        }
    }
    QStringList parts;
    if (model.LegendPick >= 0) {
        const char* const picked = model.Ink(model.LegendPick).Shown
                                       ? QT_TRANSLATE_NOOP("StripChart", "Legend: %1, shown.")
                                       : QT_TRANSLATE_NOOP("StripChart", "Legend: %1, hidden.");
        parts
            << QCoreApplication::translate("StripChart", picked).arg(model.Name(model.LegendPick));
    }
    if (!hidden.isEmpty()) {
        parts << QCoreApplication::translate("StripChart", "Hidden: %1.")
                     .arg(hidden.join(QStringLiteral(", ")));
    }
    return parts.join(QLatin1Char(' '));
}

namespace {

const QString Nothing = QStringLiteral("-");

std::optional<Reading> Read(const Trace& trace, Time time) {
    const std::optional<Reading> reading = trace.ReadAt(time);
    const bool stale = reading && time - reading->Time > LongestJoin && reading->Exact;
    return stale || (reading && std::isnan(reading->Value)) ? std::nullopt : reading;
}

/// Decimals by which a value on a scale this long is told from its neighbours.
int DecimalsFor(double span) {
    return std::clamp(5 - static_cast<int>(std::ceil(std::log10(span))), 0, 6);
}

bool Whole(double value) {
    return !std::isfinite(value) || value == std::round(value);
}

using Readings = std::vector<std::optional<Reading>>;

QString ValueText(const std::optional<Reading>& reading, int decimals) {
    if (!reading) {
        return Nothing;
    }
    return (reading->Exact ? QString() : QStringLiteral("~")) +
           QString::number(reading->Value, 'f', decimals);
}

QString DifferenceText(const Readings& readings, int decimals) {
    if (!readings[0] || !readings[1]) {
        return Nothing;
    }
    const double difference = readings[1]->Value - readings[0]->Value;
    return (difference > 0 ? QStringLiteral("+") : QString()) +
           QString::number(difference, 'f', decimals);
}

QString SpanText(Time span) {
    return QString::number(static_cast<double>(span) / 1e9, 'f', 3) + QStringLiteral(" s");
}

} // namespace

QString Readout::Text() const {
    QStringList rows;
    QStringList row{Unit};
    row.append(QStringList(Headings.begin(), Headings.end()));
    rows.append(row.join(QLatin1Char('\t')));
    for (const Line& line : Lines) {
        row = {line.Name};
        row.append(QStringList(line.Values.begin(), line.Values.end()));
        rows.append(row.join(QLatin1Char('\t')));
    }
    return rows.join(QLatin1Char('\n'));
}

Readout ReadOut(const Model& model) {
    Readout readout;
    readout.Unit = model.Unit;
    std::vector<Time> moments;
    for (int cursor = 0; cursor < 2; ++cursor) {
        if (const auto at = model.Cursors.At[static_cast<std::size_t>(cursor)]) {
            readout.Cursors.push_back(cursor);
            readout.Headings.push_back(MomentText(model, *at));
            moments.push_back(*at);
        }
    }
    if (moments.size() == 2) {
        readout.Headings.push_back(SpanText(moments[1] - moments[0]));
    }
    std::vector<std::pair<int, Readings>> table;
    bool whole = true;
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (!model.Ink(variable).Shown || !model.HasSamples(variable)) {
            continue;
        }
        Readings readings;
        for (const Time moment : moments) {
            readings.push_back(Read(model.History.Trace(variable), moment));
            whole = whole && (!readings.back() || Whole(readings.back()->Value));
        }
        table.emplace_back(variable, std::move(readings));
    }
    const int decimals = whole ? 0 : DecimalsFor(model.View.OuterValues().Span());
    for (const auto& [variable, readings] : table) {
        Readout::Line line{variable, model.Name(variable), {}};
        for (const auto& reading : readings) {
            line.Values.push_back(ValueText(reading, decimals));
        }
        if (readings.size() == 2) {
            line.Values.push_back(DifferenceText(readings, decimals));
        }
        readout.Lines.push_back(std::move(line));
    }
    return readout;
}

} // namespace tqx::strip
