#include "strip_chart/csv.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tqx::strip {
namespace {

/// The shortest text that reads back as the same number. One that came from a measurement in
/// single precision is written as such: 1.498 rather than 1.4980000257492065.
void AppendNumber(QByteArray& text, double value) {
    std::array<char, 32> digits{};
    const auto narrow = static_cast<float>(value);
    const bool isNarrow = static_cast<double>(narrow) == value;
    const auto result = isNarrow
                            ? std::to_chars(digits.data(), digits.data() + digits.size(), narrow)
                            : std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text.append(digits.data(), static_cast<qsizetype>(result.ptr - digits.data()));
}

QByteArray Quoted(const QString& name) {
    QByteArray text = name.toUtf8();
    if (text.contains(',') || text.contains('"') || text.contains('\n')) {
        text.replace("\"", "\"\"");
        text = '"' + text + '"';
    }
    return text;
}

class CsvWriter {
public:
    CsvWriter(const Model& model, const Selection& selection)
        : m_model(model)
        , m_selection(selection) {}

    void Headings() {
        const QString unit =
            m_model.Unit.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(m_model.Unit);
        m_text = "Time,Seconds,Kind";
        for (const int variable : m_selection.Variables) {
            m_text += ',' + Quoted(m_model.Name(variable) + unit);
        }
        m_text += '\n';
    }

    void Row(Time time, const char* kind, const std::vector<double>& cells) {
        const Time wall = m_model.Wall.At(time);
        m_text +=
            QDateTime::fromMSecsSinceEpoch(wall / 1'000'000, Qt::OffsetFromUTC, m_model.Zone(wall))
                .toString(Qt::ISODateWithMs)
                .toLatin1();
        m_text += ',' + QByteArray::number(static_cast<double>(time) / 1e9, 'f', 6) + ',' + kind;
        for (const double cell : cells) {
            m_text += ',';
            if (!std::isnan(cell)) {
                AppendNumber(m_text, cell);
            }
        }
        m_text += '\n';
    }

    const QByteArray& Text() const { return m_text; }

private:
    const Model& m_model;
    const Selection& m_selection;
    QByteArray m_text;
};

constexpr double Blank = std::numeric_limits<double>::quiet_NaN();

/// From when on every variable of the selection has a level's entries.
Time CompleteFrom(const Model& model, const Selection& selection, int level) {
    Time from = 0;
    for (const int variable : selection.Variables) {
        from = std::max(from, model.History.Trace(variable).CompleteFrom(level));
    }
    return from;
}

void WriteSlots(CsvWriter& writer, const Model& model, const Selection& selection, int level,
                Time from, Time until) {
    const std::size_t count = selection.Variables.size();
    std::vector<std::size_t> next(count);
    const auto trace = [&](std::size_t i) -> const Trace& {
        return model.History.Trace(selection.Variables[i]);
    };
    const auto beginOf = [&](std::size_t i) {
        const auto& closed = trace(i).Closed(level);
        return next[i] < closed.Size() ? Time{closed[next[i]].Index} * trace(i).SlotWidth(level)
                                       : std::numeric_limits<Time>::max();
    };
    for (std::size_t i = 0; i < count; ++i) {
        next[i] = trace(i).Closed(level).FirstWhere([&](const Slot& slot) {
            return (Time{slot.Index} + 1) * trace(i).SlotWidth(level) > from;
        });
    }
    while (true) {
        Time time = until;
        for (std::size_t i = 0; i < count; ++i) {
            time = std::min(time, beginOf(i));
        }
        if (time >= until) {
            return;
        }
        std::vector<double> lows(count, Blank);
        std::vector<double> highs(count, Blank);
        for (std::size_t i = 0; i < count; ++i) {
            if (beginOf(i) != time) {
                continue;
            }
            const Slot& slot = trace(i).Closed(level)[next[i]++];
            if (!slot.Gap()) {
                lows[i] = static_cast<double>(slot.Low);
                highs[i] = static_cast<double>(slot.High);
            }
        }
        writer.Row(time, "min", lows);
        writer.Row(time, "max", highs);
    }
}

/// Samples further apart than this never share a row.
constexpr Time LongestTick = Second;

/// Puts the samples of one tick into one row: they came in the order of the variables, so a sample
/// of a variable no later in that order than the one before begins the next tick.
void WriteSamples(CsvWriter& writer, const Model& model, const Selection& selection, Time from,
                  Time until) {
    const std::size_t count = selection.Variables.size();
    std::vector<std::size_t> next(count);
    const auto raw = [&](std::size_t i) -> const Ring<Sample>& {
        return model.History.Trace(selection.Variables[i]).Raw();
    };
    for (std::size_t i = 0; i < count; ++i) {
        next[i] = raw(i).FirstWhere([&](const Sample& s) { return s.Time >= from; });
    }
    std::vector<double> cells(count, Blank);
    Time rowTime = 0;
    std::size_t last = count; // variable of the sample before; count when the row is empty
    while (true) {
        std::size_t first = count;
        for (std::size_t i = 0; i < count; ++i) {
            if (next[i] < raw(i).Size() && raw(i)[next[i]].Time < until &&
                (first == count || raw(i)[next[i]].Time < raw(first)[next[first]].Time)) {
                first = i;
            }
        }
        if (last != count && (first == count || first <= last ||
                              raw(first)[next[first]].Time - rowTime > LongestTick)) {
            writer.Row(rowTime, "sample", cells);
            std::fill(cells.begin(), cells.end(), Blank);
            last = count;
        }
        if (first == count) {
            return;
        }
        const Sample& sample = raw(first)[next[first]++];
        rowTime = last == count ? sample.Time : rowTime;
        cells[first] = sample.Value;
        last = first;
    }
}

} // namespace

Selection SelectOnView(const Model& model) {
    Selection selection{model.View.Begin(), model.View.End(), {}};
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (model.Ink(variable).Shown && model.HasSamples(variable)) {
            selection.Variables.push_back(variable);
        }
    }
    return selection;
}

Selection SelectAll(const Model& model) {
    Selection selection{0, model.History.Newest() + 1, {}};
    for (int variable = 0; variable < VariableCount; ++variable) {
        if (model.HasSamples(variable)) {
            selection.Variables.push_back(variable);
        }
    }
    return selection;
}

QByteArray CsvText(const Model& model, const Selection& selection) {
    CsvWriter writer(model, selection);
    writer.Headings();
    for (int level = Trace::LevelCount - 1; level >= -1; --level) {
        const Time from = std::max(selection.From, CompleteFrom(model, selection, level));
        if (level < 0) {
            WriteSamples(writer, model, selection, from, selection.Until);
            break;
        }
        const Time until = std::min(selection.Until, CompleteFrom(model, selection, level - 1));
        if (from < until) {
            WriteSlots(writer, model, selection, level, from, until);
        }
    }
    return writer.Text();
}

} // namespace tqx::strip
