#pragma once

#include <simulated/chip_input.h>

#include <QString>

namespace tqx {

/// How an input of the board is named and set.
struct InputRange {
    QString Caption;
    QString Unit;
    /// Any value in between can be held.
    double Min;
    double Max;
    /// A step of the slider; of a voltage one count of the chip.
    double Step;
    /// Digits behind the point that are shown.
    int Decimals;

    /// Slider positions run from 0 to this.
    int LastPosition() const;
    int PositionOf(double value) const;
    double ValueAt(int position) const;

    /// The value in digits that keep their places, with its unit.
    QString Text(double value) const;
};

InputRange RangeOf(ChipInput input);

/// When the chip measures the input, for those that share their pin; empty for the others.
QString SharedPinNote(ChipInput input);

} // namespace tqx
