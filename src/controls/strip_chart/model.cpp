#include "strip_chart/model.h"

#include <QCoreApplication>

#include <algorithm>

namespace tqx {

QString StripModel::Name(int variable) const {
    if (QString legend = Legend(variable); !legend.isEmpty()) {
        return legend;
    }
    const QString& own = Names[static_cast<std::size_t>(variable)];
    if (!own.isEmpty()) {
        return own;
    }
    return QCoreApplication::translate("StripChart", "Variable %1").arg(variable);
}

void StripModel::ShowOnly(int variable) {
    const auto shown =
        std::count_if(Inks.begin(), Inks.end(), [](const StripInk& ink) { return ink.Shown; });
    const bool alone = shown == 1 && Ink(variable).Shown;
    for (StripInk& ink : Inks) {
        ink.Shown = alone;
    }
    Ink(variable).Shown = true;
}

void StripModel::ShowAll() {
    for (StripInk& ink : Inks) {
        ink.Shown = true;
    }
}

StripOffScale FindOffScale(const StripModel& model) {
    StripOffScale found;
    const StripRange values = model.View.Values();
    for (int variable = 0; variable < StripVariableCount; ++variable) {
        if (!model.Ink(variable).Shown || !model.HasSamples(variable)) {
            continue;
        }
        const StripTrace& trace = model.History.Trace(variable);
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

QString StripClockText(const StripModel& model, StripTime time) {
    const StripTime wall = model.Wall.At(time);
    const StripTime seconds = wall / StripSecond + model.Zone(wall);
    return QString::asprintf("%02d %02d %02d", static_cast<int>(seconds / 3600 % 24),
                             static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
}

QString StripMomentText(const StripModel& model, StripTime time) {
    if (model.Wall.Stretches().empty()) {
        return QStringLiteral("-");
    }
    const StripTime milliseconds = model.Wall.At(time) % StripSecond / 1'000'000;
    return StripClockText(model, time) + QString::asprintf(".%03d", static_cast<int>(milliseconds));
}

QString StripStandstillText(const StripModel& model) {
    if (model.View.Following()) {
        return {};
    }
    if (model.Wall.Stretches().empty()) {
        return QCoreApplication::translate("StripChart", "Frozen. New samples are kept.");
    }
    const StripTime edge = std::min(model.View.End(), model.History.Newest());
    const QString text =
        model.View.Frozen()
            ? QCoreApplication::translate("StripChart", "Frozen at %1. New samples are kept.")
            : QCoreApplication::translate("StripChart", "Up to %1. New samples are kept.");
    return text.arg(StripClockText(model, edge));
}

QString StripLegendText(const StripModel& model) {
    QStringList hidden;
    for (int variable = 0; variable < StripVariableCount; ++variable) {
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

} // namespace tqx
