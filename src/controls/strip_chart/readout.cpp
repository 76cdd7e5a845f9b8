#include "strip_chart/readout.h"

#include "strip_chart/columns.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace tqx {
namespace {

const QString Nothing = QStringLiteral("-");

std::optional<StripReading> Read(const StripTrace& trace, StripTime time) {
    const std::optional<StripReading> reading = trace.ReadAt(time);
    const bool stale = reading && time - reading->Time > StripLongestJoin && reading->Exact;
    return stale || (reading && std::isnan(reading->Value)) ? std::nullopt : reading;
}

/// Decimals by which a value on a scale this long is told from its neighbours.
int DecimalsFor(double span) {
    return std::clamp(5 - static_cast<int>(std::ceil(std::log10(span))), 0, 6);
}

bool Whole(double value) {
    return !std::isfinite(value) || value == std::round(value);
}

using Readings = std::vector<std::optional<StripReading>>;

QString ValueText(const std::optional<StripReading>& reading, int decimals) {
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

QString SpanText(StripTime span) {
    return QString::number(static_cast<double>(span) / 1e9, 'f', 3) + QStringLiteral(" s");
}

} // namespace

QString StripReadout::Text() const {
    QStringList rows;
    QStringList row{QString()};
    row.append(QStringList(Headings.begin(), Headings.end()));
    rows.append(row.join(QLatin1Char('\t')));
    for (const Line& line : Lines) {
        row = {line.Name};
        row.append(QStringList(line.Values.begin(), line.Values.end()));
        rows.append(row.join(QLatin1Char('\t')));
    }
    return rows.join(QLatin1Char('\n'));
}

StripReadout ReadOut(const StripModel& model) {
    StripReadout readout;
    std::vector<StripTime> moments;
    for (int cursor = 0; cursor < 2; ++cursor) {
        if (const auto at = model.Cursors.At[static_cast<std::size_t>(cursor)]) {
            readout.Cursors.push_back(cursor);
            readout.Headings.push_back(StripMomentText(model, *at));
            moments.push_back(*at);
        }
    }
    if (moments.size() == 2) {
        readout.Headings.push_back(SpanText(moments[1] - moments[0]));
    }
    std::vector<std::pair<int, Readings>> table;
    bool whole = true;
    for (int variable = 0; variable < StripVariableCount; ++variable) {
        if (!model.Ink(variable).Shown || !model.HasSamples(variable)) {
            continue;
        }
        Readings readings;
        for (const StripTime moment : moments) {
            readings.push_back(Read(model.History.Trace(variable), moment));
            whole = whole && (!readings.back() || Whole(readings.back()->Value));
        }
        table.emplace_back(variable, std::move(readings));
    }
    const int decimals = whole ? 0 : DecimalsFor(model.View.OuterValues().Span());
    for (const auto& [variable, readings] : table) {
        StripReadout::Line line{variable, model.Name(variable), {}};
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

} // namespace tqx
