#include "input_range.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tqx {
namespace {

/// In the order of ChipInput.
constexpr std::array<const char*, ChipInputCount> Captions{
    "IntTemp", "ExtTemp0", "ExtTemp1", "Fan 0", "Fan 1", "Fan 2", "Fan 3",
    "Fan 4",   "Fan 5",    "Fan 6",    "Fan 7", "Vbatt", "+5V",   "-12V",
    "+12V",    "Vccp",     "Ain 0",    "Ain 1", "Ain 2", "Ain 3", "Ain 4",
    "Ain 5",   "Ain 6",    "Ain 7",    "Ain 8", "Ain 9", "3.3VS", "3.3VM"};

constexpr double HottestDegrees = 127; // and the coldest below zero
constexpr double FastestFan = 20000;   // RPM
constexpr double VoltageCounts = 255;
constexpr int ValueWidth = 7; // the longest is -15.920

} // namespace

int InputRange::LastPosition() const {
    return PositionOf(Max);
}

int InputRange::PositionOf(double value) const {
    return static_cast<int>(std::lround((std::clamp(value, Min, Max) - Min) / Step));
}

double InputRange::ValueAt(int position) const {
    return std::clamp(Min + position * Step, Min, Max);
}

QString InputRange::Text(double value) const {
    return QString::number(value, 'f', Decimals).rightJustified(ValueWidth) + ' ' + Unit;
}

InputRange RangeOf(ChipInput input) {
    const InputFacts& facts = FactsOf(input);
    const QString caption = QLatin1String(Captions.at(static_cast<std::size_t>(input)));
    switch (facts.Kind) {
    case InputKind::Temperature:
        return {caption, "C", -HottestDegrees, HottestDegrees, 1, 1};
    case InputKind::Fan:
        return {caption, "RPM", 0, FastestFan, 100, 0};
    case InputKind::Voltage:
        break;
    }
    return {caption, "V", facts.Min, facts.Max, (facts.Max - facts.Min) / VoltageCounts, 3};
}

QString SharedPinNote(ChipInput input) {
    switch (input) {
    case ChipInput::Ext2Temp:
        return "Measured while bit 3 of 00h is clear.";
    case ChipInput::Ain8:
    case ChipInput::Ain9:
        return "Measured while bit 3 of 00h is set.";
    default:
        return FactsOf(input).Kind == InputKind::Fan
                   ? QStringLiteral("Measured while its bit of 01h is clear.")
                   : QString();
    }
}

} // namespace tqx
